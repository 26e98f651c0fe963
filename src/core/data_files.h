// The small file procedures that every room uses: joining paths, appending, the viewer.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/host.h"

namespace brelwin {

// The path with "\" appended unless it ends in one already; an empty path stays empty.
std::string AddBackslash(std::string_view path);

// The full path of a file in the program's folder.
std::string InProgramFolder(const Host& host, std::string_view fileName);

// False for an empty name; otherwise true when there is such a file.
bool FileExists(const Host& host, std::string_view fileName);

// Deletes the file when the name is not empty; errors are swallowed.
void DeleteFile(Host& host, std::string_view fileName);

// The file's length in bytes; 0 when it does not exist, the largest 32-bit number when it is longer than
// that.
std::int32_t GetFileLength(const Host& host, std::string_view fileName);

// Writes text to the file as it is, without a line end. With `append`, at the end of an existing file, after
// a separator line (CR LF, 44 "=", CR LF); else, and for a new file, in place of what was there. True when it
// was written. An empty name does nothing and gives False; a file error gives False and the error text, which
// is cleared on entry.
bool AppendToFile(Host& host, std::string_view fileName, std::string_view text, bool append,
                  std::string& errorText, FileAccess access = FileAccess::Everyone);

// Adds the lines at the end of the file, creating it when there is none; an unfinished last line is finished
// first, and what is there stays as it is. The file is replaced as a whole, so that no crash leaves a torn
// line. True when they are there, also when there is nothing to add; an error is not logged.
bool AppendLines(Host& host, std::string_view filePath, const std::vector<std::string>& lines);

// Shows a text file in the system's text viewer.
void ViewTextFile(Host& host, std::string_view filePath);

// Opens the trimmed path or web address with its associated program; does nothing for an empty one. The
// result is the shell's: true when the program could be started.
bool OpenDocument(Host& host, std::string_view pathOrAddress);

}  // namespace brelwin
