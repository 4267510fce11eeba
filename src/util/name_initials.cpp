#include "src/util/name_initials.h"

#include "src/platform/dispatch.h"
#include "src/platform/foundation/NSArray.h"
#include "src/platform/owned.h"

namespace zelka {
namespace {

NSCharacterSet separators() {
    static constinit std::intptr_t once = 0;
    static constinit NSCharacterSet set;
    // Made once for the process.
    dispatchOnce(once, [] { set = keepForever(retain(NSCharacterSet::alphanumeric().inverted())); });
    return set;
}

}  // namespace

NSString monogramTextFromName(NSString name) {
    if (name.length() == 0) return name;
    NSString unquoted = name.replacing(literal<"\"">(), literal<"">());
    NSArray pieces = unquoted.componentsSeparatedByAnyOf(separators());
    NSString firstWord;
    NSString lastWord;
    NSUInteger count = pieces.count();
    NSUInteger words = 0;
    for (NSUInteger i = 0; i < count; ++i) {
        auto piece = pieces.at<NSString>(i);
        if (piece.length() == 0) continue;
        if (words++ == 0) firstWord = piece;
        lastWord = piece;
    }
    if (words >= 2) return firstCharacter(firstWord).appending(firstCharacter(lastWord));
    // Nothing but double quotes: a space, as for a name of any other punctuation.
    if (unquoted.length() == 0) return literal<" ">();
    // Of the whole text, not of the word: a name that begins with a separator gives a space.
    return firstCharacter(pieces.joinedBy(literal<" ">()));
}

}  // namespace zelka
