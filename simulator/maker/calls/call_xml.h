// Call logs as the XML that SMS Backup & Restore writes: <calls> with a <call number="..." duration="seconds"
// date="milliseconds since 1970" type="1" presentation="1" contact_name="..."/> for each call, as its publisher
// documents these attributes.
#pragma once

#include <string>
#include <vector>

#include "simulator/maker/calls/written_call.h"
#include "simulator/maker/common/findings.h"
#include "simulator/maker/common/result.h"
#include "simulator/maker/text/text_file.h"

namespace maker {

// The calls of such a text. Fails, naming file and line, for what is not XML, holds no <calls>, or has a call that
// cannot be read.
Result<std::vector<WrittenCall>> readCallXml(Text text, const std::string& charset, Findings& findings);

}  // namespace maker
