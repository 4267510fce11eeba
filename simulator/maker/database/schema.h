// The phone's databases as they lie on disk: tables, column names and indexes of phones of the period.
#pragma once

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "simulator/runtime/process/device.h"

namespace maker {

struct DatabaseShape {
    const char* what;                                                        // for messages: "an address book"
    const char* path;                                                        // inside a root, relative
    const char* sql;                                                         // creates it empty
    std::vector<std::pair<std::string, std::vector<std::string>>> required;  // table, columns that hosts and tool use
};

const DatabaseShape& addressBookShape();
const DatabaseShape& imagesShape();
// Calls as systems before 8 keep them.
const DatabaseShape& callHistoryShape();
// And from 8 on: the Core Data store CallHistory.storedata, with the tables and columns that the literature on the
// forensics of these phones documents. It remembers no contact; whoever shows a call looks its address up.
const DatabaseShape& callStoreShape();
// That of the two in which a device's system keeps its calls.
const DatabaseShape& callsShape(const phone::Device& device);
// All three of a device.
std::array<const DatabaseShape*, 3> databaseShapes(const phone::Device& device);

// ABMultiValue.property
constexpr int kPhoneProperty = 3;
constexpr int kEmailProperty = 4;
constexpr int kAddressProperty = 5;

// ABThumbnailImage.format of the square pictures that lists show.
constexpr int kThumbnailFormat = 0;

// call.flags: an odd number is an outgoing call. An incoming call that lasted 0 seconds was missed.
constexpr int kIncomingCall = 4;
constexpr int kOutgoingCall = 5;

// ZCALLRECORD.ZCALLTYPE: over the telephone network, FaceTime with pictures.
constexpr int kTelephoneCall = 1;
constexpr int kFaceTimeCall = 8;

// The address book and the call store count seconds from 2001-01-01 00:00 UTC, call_history.db from 1970-01-01: add
// this to the former.
constexpr double kAddressBookEpoch = 978307200.0;

}  // namespace maker
