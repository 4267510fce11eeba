// Made-up contacts, as many as wanted.
#pragma once

#include <cstdint>

#include "simulator/maker/common/progress.h"
#include "simulator/maker/common/result.h"
#include "simulator/maker/contacts/address_book_builder.h"

namespace maker {

// Adds that many contacts with names in many scripts and one to three numbers; every third has a thumbnail, every
// fiftieth is linked to the one before. The same count and seed give the same book. How many have a picture.
Result<long> addGeneratedContacts(AddressBookBuilder& builder, int count, std::uint32_t seed, double modified,
                                  const Progress& progress);

}  // namespace maker
