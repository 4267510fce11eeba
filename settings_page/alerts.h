// What the page says and asks in alerts. Main thread.
#pragma once

#include "settings_page/texts.h"

namespace zelka {

// What an alert asks; its view's tag, so that the answer is known by it.
enum class Question : NSInteger { deleteLog = 1, restoreDefaults = 2 };

// Says that something went wrong.
void showProblem(Text problem);

// Asks whether to go on. The delegate is sent alertView:clickedButtonAtIndex:, with kYesButton for yes.
constexpr NSInteger kYesButton = 1;
void ask(Question question, NSObject delegate);

}  // namespace zelka
