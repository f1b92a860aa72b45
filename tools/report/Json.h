// What the reports that are JSON share.
#pragma once

#include <OpenVornik/VMatrix.h>

#include <string>

#include <nlohmann/json.hpp>

namespace Tolvane::Tools {

using Json = nlohmann::ordered_json;

// JSON has no NaN and no infinities: they come as their texts.
Json jsonNumber(double number);

// Its four rows.
Json jsonMatrix(const VMatrix& matrix);

// Ends with a line feed; in one line for an indent of -1. JSON is UTF-8, which file names, paths
// and messages need not be: what is none is replaced.
std::string printed(const Json& json, int indent = 2);

}  // namespace Tolvane::Tools
