// The lists of callsigns that the operator keeps in the program's folder.
#pragma once

#include <string>
#include <string_view>

#include "base/keyed_collection.h"
#include "platform/host.h"

namespace brelwin {

// Fills the collection from a list file, one entry a line; with `useBaseCallsign` the entry is the base
// callsign of the line. Keyed entries have themselves as key, and the first of equal ones wins; others have
// none. Lines end in LF or CR LF. False, with nothing changed, for an empty path or a missing file; the error
// text is cleared on entry; when the file could not be read it is set, and logged with its number.
bool LoadCallsignList(Host& host, std::string_view filePath, bool useBaseCallsign, bool keyed,
                      KeyedCollection<std::string>& collection, std::string& errorText);

}  // namespace brelwin
