#include "tools/support/OneLine.h"

namespace Tolvane::Tools {

std::string oneLine(std::string_view text) {
    std::string line;
    bool blankDue = false;
    for (const char character : text) {
        const auto code = static_cast<unsigned char>(character);
        if (code <= ' ' || code == 0x7f) {
            blankDue = !line.empty();
            continue;
        }
        if (blankDue) line += ' ';
        blankDue = false;
        line += character;
    }
    return line;
}

}  // namespace Tolvane::Tools
