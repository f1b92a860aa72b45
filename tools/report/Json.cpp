#include "tools/report/Json.h"

#include "tools/node/LeafText.h"

#include <cmath>

namespace Tolvane::Tools {

Json jsonNumber(double number) {
    return std::isfinite(number) ? Json(number) : Json(textOf(number));
}

std::string printed(const Json& json, int indent) {
    return json.dump(indent, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace Tolvane::Tools
