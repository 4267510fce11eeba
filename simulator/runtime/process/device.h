#pragma once

// What this phone is: the contents of ROOT/device.plist.

#include <filesystem>
#include <string>

#include "simulator/runtime/process/processor.h"
#include "simulator/runtime/result.h"

namespace phone {

struct Device {
    std::string model = "iPhone";       // UIDevice's model
    std::string machine = "iPhone7,2";  // sysctl's "hw.machine"
    std::string name = "iPhone";        // UIDevice's name
    std::string systemVersion = "8.4";  // UIDevice's systemVersion
    std::string region = "US";          // ISO 3166 country of the phone's settings
    std::string language = "en";
    double width = 375, height = 667;    // the screen in portrait orientation, in points
    double scale = 2;                    // pixels a point, as UIScreen has it
    double nativeScale = 2;              // pixels of the panel a point
    int idiom = 0;                       // UIUserInterfaceIdiom: 0 phone, 1 pad
    int orientation = 1;                 // UIInterfaceOrientation: 1 portrait, 2 upside down, 3 and 4 landscape
    bool rightToLeft = false;            // layout direction
    std::string processor = kProcessor;  // what its processes, and so its libraries, are built for
    // How the Settings app's values travel: before their notification into the file, or, by the service that systems
    // from 8 on have, some time after it.
    bool preferencesService = true;
};

// Whether a phone of that system hands settings to a service unless device.plist says otherwise.
bool hasPreferencesService(const std::string& systemVersion);

bool operator==(const Device& a, const Device& b);

// The first number of the system's version; 0 when it does not begin with one.
int systemNumber(const Device& device);
// Whether its system keeps calls in CallHistory.storedata, as from 8 on, rather than in call_history.db.
bool keepsCallStore(const Device& device);

// The device of this process, read once by boot() (process.h); before that, the default. Any thread.
const Device& device();
// Sets device(). For boot() alone, before other threads exist.
void setDevice(Device device);

// Reads ROOT/device.plist. Keys that are missing keep the default's value. Fails when there is no file, it is not a
// property list, or a value is of the wrong kind or outside its range.
Result<Device> readDevice(const std::filesystem::path& root);

// Writes ROOT/device.plist as an XML property list, replacing it as a whole or not at all.
[[nodiscard]] Status writeDevice(const std::filesystem::path& root, const Device& device);

}  // namespace phone
