#include "tools/report/Json.h"

#include "tools/node/LeafText.h"

#include <cmath>

namespace Tolvane::Tools {

Json jsonNumber(double number) {
    return std::isfinite(number) ? Json(number) : Json(textOf(number));
}

Json jsonMatrix(const VMatrix& matrix) {
    Json rows = Json::array();
    for (unsigned i = 0; i < 4; ++i)
        rows.push_back({jsonNumber(matrix[i][0]), jsonNumber(matrix[i][1]),
                        jsonNumber(matrix[i][2]), jsonNumber(matrix[i][3])});
    return rows;
}

std::string printed(const Json& json, int indent) {
    return json.dump(indent, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace Tolvane::Tools
