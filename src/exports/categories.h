// The methods that the library adds to the platform's classes, under names of its own.
#pragma once

namespace zelka {

// Adds them: UIColor (ZelkaCB), UIImage (ZelkaCB), NSObject (ZelkaCB1) and UITableViewCell (ZelkaCB1). On the loading
// thread.
void extendPlatformClasses();

}  // namespace zelka
