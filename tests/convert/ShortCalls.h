// Sequences of host calls written short, so that a test can state a whole one and a reader can take
// it in: "array value; count value" stands for the lines
// "VArrayDataHandle::VArrayDataHandle value" and "VArrayDataHandle::elementCount value". Calls are
// separated by semicolons or line ends; indentation and empty lines mean nothing.
#pragma once

#include "tests/support/CallRecorder.h"

#include <algorithm>
#include <map>
#include <sstream>
#include <string>

namespace TestSupport {

inline const std::string& operationOf(const std::string& word) {
    static const std::map<std::string, std::string> operations{
        {"child", "VPlug::child"},
        {"element", "VPlug::elementByLogicalIndex"},
        {"data", "VDataHandle::child"},
        {"asMatrix", "VDataHandle::asMatrix"},
        {"asString", "VDataHandle::asString"},
        {"asDouble", "VDataHandle::asDouble"},
        {"setString", "VDataHandle::setString"},
        {"setDouble", "VDataHandle::setDouble"},
        {"array", "VArrayDataHandle::VArrayDataHandle"},
        {"count", "VArrayDataHandle::elementCount"},
        {"input", "VArrayDataHandle::inputValue"},
        {"output", "VArrayDataHandle::outputValue"},
        {"next", "VArrayDataHandle::next"},
        {"builder", "VArrayDataHandle::builder"},
        {"set", "VArrayDataHandle::set"},
        {"clean", "VArrayDataHandle::setAllClean"},
        {"add", "VArrayDataBuilder::addElement"},
        {"remove", "VArrayDataBuilder::removeElement"},
        {"countBuilt", "VArrayDataBuilder::elementCount"}};
    return operations.at(word);
}

// Throws std::out_of_range for a word that stands for no operation.
inline CallRecorder::Lines callLines(std::string text) {
    std::replace(text.begin(), text.end(), '\n', ';');
    std::istringstream calls(text);
    CallRecorder::Lines lines;
    for (std::string call; std::getline(calls, call, ';');) {
        std::istringstream words(call);
        std::string word, rest;
        if (!(words >> word)) continue;
        std::getline(words, rest);
        lines.push_back(operationOf(word) + rest);
    }
    return lines;
}

// Reading and writing a transform at node.value[0] call the host alike.
constexpr const char* kTransformElement = R"(
    child node.value[0] 0; data value[] node.value[0].matrix0; asMatrix value[].matrix0
    child node.value[0] 1; data value[] node.value[0].matrix1; asMatrix value[].matrix1
    child node.value[0] 2; data value[] node.value[0].matrix2; asMatrix value[].matrix2
    child node.value[0] 3; data value[] node.value[0].matrix3; asMatrix value[].matrix3
    child node.value[0] 4; data value[] node.value[0].matrix4; asMatrix value[].matrix4
    child node.value[0] 5; data value[] node.value[0].matrix5; asMatrix value[].matrix5
    child node.value[0] 6; data value[] node.value[0].matrix6; asMatrix value[].matrix6
    child node.value[0] 7; data value[] node.value[0].matrix7; asMatrix value[].matrix7
)";

// The same for one that is no element.
constexpr const char* kTransform = R"(
    child node.value 0; data value node.value.matrix0; asMatrix value.matrix0
    child node.value 1; data value node.value.matrix1; asMatrix value.matrix1
    child node.value 2; data value node.value.matrix2; asMatrix value.matrix2
    child node.value 3; data value node.value.matrix3; asMatrix value.matrix3
    child node.value 4; data value node.value.matrix4; asMatrix value.matrix4
    child node.value 5; data value node.value.matrix5; asMatrix value.matrix5
    child node.value 6; data value node.value.matrix6; asMatrix value.matrix6
    child node.value 7; data value node.value.matrix7; asMatrix value.matrix7
)";

// The same for the only element of an array in a record.
constexpr const char* kTransformInRecord = R"(
    child node.value.transforms[0] 0
    data value.transforms[] node.value.transforms[0].matrix0; asMatrix value.transforms[].matrix0
    child node.value.transforms[0] 1
    data value.transforms[] node.value.transforms[0].matrix1; asMatrix value.transforms[].matrix1
    child node.value.transforms[0] 2
    data value.transforms[] node.value.transforms[0].matrix2; asMatrix value.transforms[].matrix2
    child node.value.transforms[0] 3
    data value.transforms[] node.value.transforms[0].matrix3; asMatrix value.transforms[].matrix3
    child node.value.transforms[0] 4
    data value.transforms[] node.value.transforms[0].matrix4; asMatrix value.transforms[].matrix4
    child node.value.transforms[0] 5
    data value.transforms[] node.value.transforms[0].matrix5; asMatrix value.transforms[].matrix5
    child node.value.transforms[0] 6
    data value.transforms[] node.value.transforms[0].matrix6; asMatrix value.transforms[].matrix6
    child node.value.transforms[0] 7
    data value.transforms[] node.value.transforms[0].matrix7; asMatrix value.transforms[].matrix7
)";

}  // namespace TestSupport
