// The files in page/, which the build puts into the program.
#pragma once

namespace Tolvane::Tools {

extern const char* const kPageHtml;
extern const char* const kPageStyle;
extern const char* const kPagePlayer;

}  // namespace Tolvane::Tools
