#include "simulator/frameworks/contacts_ui/name_order.h"

#include <unicode/alphaindex.h>
#include <unicode/coll.h>
#include <unicode/translit.h>
#include <unicode/uscript.h>

#include <algorithm>
#include <limits>
#include <stdexcept>

#include "simulator/runtime/process/device.h"

namespace contacts_ui {
namespace {

using icu::AlphabeticIndex;
using icu::Locale;

constexpr const char* kOthers = "#";
constexpr int kOthersSection = std::numeric_limits<int>::max();

// Alphabets that get sections beside those of the language, by a language of each.
constexpr const char* kOtherAlphabets[] = {"en", "el", "uk", "sr", "hy", "ka", "he", "ar", "hi", "th", "ko", "ja"};

void require(UErrorCode error, const char* what) {
    if (U_FAILURE(error)) throw std::runtime_error(std::string("ICU has no ") + what + ": " + u_errorName(error));
}

bool isHan(UChar32 letter) {
    UErrorCode error = U_ZERO_ERROR;
    return uscript_getScript(letter, &error) == USCRIPT_HAN;
}

bool sortsHanItself(const Locale& locale) {
    const std::string language = locale.getLanguage();
    return language == "zh" || language == "ja" || language == "ko" || language == "yue";
}

}  // namespace

struct NameOrder::Tables {
    std::unique_ptr<icu::Collator> collator;
    std::unique_ptr<AlphabeticIndex::ImmutableIndex> index;
    std::unique_ptr<icu::Transliterator> sound;  // of Chinese characters in Latin letters; none if they stay

    explicit Tables(const Locale& locale) {
        UErrorCode error = U_ZERO_ERROR;
        collator.reset(icu::Collator::createInstance(locale, error));
        AlphabeticIndex alphabets(locale, error);
        require(error, "order of names");
        constexpr int mostLabels = 500;
        alphabets.setMaxLabelCount(mostLabels, error);
        for (const char* alphabet : kOtherAlphabets) alphabets.addLabels(Locale(alphabet), error);
        index.reset(alphabets.buildImmutableIndex(error));
        require(error, "sections of names");
        if (sortsHanItself(locale)) return;
        sound.reset(icu::Transliterator::createInstance("Han-Latin", UTRANS_FORWARD, error));
        require(error, "sounds of Chinese characters");
    }

    icu::UnicodeString sorted(const std::string& name) const {
        icu::UnicodeString text = icu::UnicodeString::fromUTF8(name);
        bool han = false;
        for (int32_t i = 0; i < text.length() && !han; i = text.moveIndex32(i, 1)) han = isHan(text.char32At(i));
        if (han && sound) sound->transliterate(text);
        return text;
    }

    std::string keyOf(const icu::UnicodeString& text) const {
        std::string key(static_cast<std::size_t>(std::max(16, 4 * text.length())), '\0');
        for (;;) {
            const int32_t length =
                collator->getSortKey(text, reinterpret_cast<uint8_t*>(key.data()), static_cast<int32_t>(key.size()));
            const bool fits = static_cast<std::size_t>(length) <= key.size();
            key.resize(static_cast<std::size_t>(length));
            if (fits) return key;
        }
    }
};

NameOrder::NameOrder(const std::string& language) {
    UErrorCode error = U_ZERO_ERROR;
    tables_ = std::make_unique<Tables>(Locale::forLanguageTag(language, error));
}

NameOrder::~NameOrder() = default;

NameOrder::Place NameOrder::placeOf(const std::string& name) const {
    const icu::UnicodeString text = tables_->sorted(name);
    UErrorCode error = U_ZERO_ERROR;
    const int32_t number = tables_->index->getBucketIndex(text, error);
    const AlphabeticIndex::Bucket* bucket = tables_->index->getBucket(number);
    Place place{kOthersSection, kOthers, tables_->keyOf(text)};
    if (U_FAILURE(error) || bucket == nullptr || bucket->getLabelType() != U_ALPHAINDEX_NORMAL) return place;
    place.section = number;
    place.title.clear();
    bucket->getLabel().toUTF8String(place.title);
    return place;
}

const NameOrder& deviceNameOrder() {
    static const auto& order = *new NameOrder(phone::device().language);
    return order;
}

}  // namespace contacts_ui
