// The settings file that the library leaves for the preference bundle to change.
#pragma once

namespace zelka {

// Makes the file in the user's home with the standard settings, or adds to an existing one the settings that it lacks.
// A file that cannot be read is replaced. Fails in silence when the file cannot be written. On the loading thread.
void seedSettingsFile();

}  // namespace zelka
