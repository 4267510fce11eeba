#include "settings_page/alerts.h"

#include "src/platform/uikit/UIAlertView.h"

namespace zelka {
namespace {

struct Words {
    Text title, message, yes;
};

constexpr Words wordsOf(Question question) {
    switch (question) {
        case Question::deleteLog:
            return {Text::deleteLog, Text::deleteLogQuestion, Text::deleteLog};
        case Question::restoreDefaults:
            return {Text::restoreDefaults, Text::restoreDefaultsQuestion, Text::restoreDefaults};
    }
    return {};
}

}  // namespace

void showProblem(Text problem) {
    UIAlertView::create(literal<"ZelkaCB">(), localized(problem), NSObject{}, localized(Text::ok))->show();
}

void ask(Question question, NSObject delegate) {
    const Words words = wordsOf(question);
    Owned<UIAlertView> alert =
        UIAlertView::create(localized(words.title), localized(words.message), delegate, localized(Text::cancel));
    alert->addButton(localized(words.yes));
    alert->setTag(static_cast<NSInteger>(question));
    alert->show();
}

}  // namespace zelka
