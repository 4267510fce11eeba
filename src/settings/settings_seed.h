// The settings file that the library leaves for the preference bundle to change.
#pragma once

namespace zelka {

// Makes the file in the user's home with all settings on, or adds to an existing one the settings that it lacks. What
// cannot be read is replaced; what cannot be written is left.
void seedSettingsFile();

}  // namespace zelka
