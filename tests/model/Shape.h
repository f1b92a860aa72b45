// What the graph's types are made of, by their names.
#pragma once

#include <string>
#include <vector>

namespace Model {

enum class Kind { Number, Text, Matrix, Object, Record, Array };

struct Shape {
    std::string name;
    Kind kind;
    // A record's members, in order; an array's one element.
    std::vector<const Shape*> parts;
};

struct RecordRow {
    std::string name;
    // The names of their types, in order.
    std::vector<std::string> members;
};

// Whoever links the model supplies the records.
const std::vector<RecordRow>& recordRows();

// Throws std::out_of_range where there is no such type.
const Shape& shapeOf(const std::string& type);

// The records, then the arrays of each.
const std::vector<std::string>& carriedTypes();
bool isCarried(const std::string& type);

}  // namespace Model
