#include "tools/check/Content.h"

#include "tools/node/GenerateData.h"

#include <OpenVornik/VArrayDataBuilder.h>
#include <OpenVornik/VArrayDataHandle.h>

#include <cstring>
#include <limits>
#include <string>
#include <vector>

namespace Tolvane::Tools {
namespace {

using Numbers = Content::Numbers;
using Texts = Content::Texts;

constexpr std::size_t kMany = 100;

double notANumber(std::uint64_t seed) {
    const std::uint64_t sign = (seed & 1) << 63;
    const std::uint64_t bits = sign | 0x7ff8'0000'0000'0000 | (seed >> 14);
    double number = 0;
    std::memcpy(&number, &bits, sizeof number);
    return number;
}

double extreme(std::uint64_t seed) {
    using Limits = std::numeric_limits<double>;
    const double all[] = {Limits::infinity(),   -Limits::infinity(), -0.0,
                          Limits::denorm_min(), Limits::max(),       Limits::min() / 3};
    return all[seed % std::size(all)];
}

double numberOf(Numbers numbers, std::uint64_t seed) {
    return numbers == Numbers::NotNumbers ? notANumber(seed) : extreme(seed);
}

std::string letters(std::size_t count, std::uint64_t seed) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) text += static_cast<char>('a' + seedOf(seed, i) % 26);
    return text;
}

std::string anyBytes(std::uint64_t seed) {
    std::string text;
    for (unsigned i = 0; i < 255; ++i) text += static_cast<char>(1 + (i * 7 + seed % 255) % 255);
    return text;
}

std::string textOf(Texts texts, std::uint64_t seed) {
    switch (texts) {
        case Texts::Long:
            return letters(seed % 16 == 0 ? 70'000 : 300, seed);
        case Texts::BlankEdged:
            return " \t" + letters(seed % 5, seed) + "\n  ";
        case Texts::AnyByte:
            return anyBytes(seed);
        case Texts::Plain:
        case Texts::Empty:
            break;
    }
    return "";
}

VMatrix matrixOf(Numbers numbers, std::uint64_t seed) {
    VMatrix matrix;
    for (unsigned i = 0; i < 16; ++i) matrix[i / 4][i % 4] = numberOf(numbers, seedOf(seed, i));
    return matrix;
}

void fillLeaf(const DataPlace& place, const Content& content) {
    const bool plainNumbers = content.numbers == Numbers::Plain;
    VDataHandle handle = place.handle;
    if (place.shape.kind == DataShape::Kind::String && content.texts != Texts::Plain)
        handle.setString(textOf(content.texts, content.seed).c_str());
    else if (place.shape.kind == DataShape::Kind::Double && !plainNumbers)
        handle.setDouble(numberOf(content.numbers, content.seed));
    else if (place.shape.kind == DataShape::Kind::Matrix && !plainNumbers)
        handle.setMatrix(matrixOf(content.numbers, content.seed));
    else
        generateData(place, content.seed);
}

void fillOne(const DataPlace& place, const Content& content) {
    if (place.shape.kind != DataShape::Kind::Compound) return fillLeaf(place, content);
    for (std::size_t i = 0; i < place.shape.children.size(); ++i) {
        Content part = content;
        part.seed = seedOf(content.seed, i);
        fill(place.child(i), part);
    }
}

std::vector<unsigned> indicesOf(const Content& content) {
    std::vector<unsigned> indices;
    unsigned index = content.sparse ? 2 : 0;
    for (std::size_t i = 0; i < content.elements; ++i) {
        indices.push_back(index);
        index += content.sparse ? 1 + static_cast<unsigned>(seedOf(content.seed, i) % 5) : 1;
    }
    return indices;
}

void remake(const DataPlace& place, const std::vector<unsigned>& indices) {
    VArrayDataHandle array(place.handle);
    VArrayDataBuilder builder = array.builder();
    for (unsigned i = array.elementCount(); i > 0; --i) {
        builder.removeElement(array.elementIndex());
        array.next();
    }
    for (const unsigned index : indices) builder.addElement(index);
    array.set(builder);
}

std::size_t elementsWithin(const Content& content, std::size_t index) {
    if (content.elements <= kMany) return content.elements;
    return index < 3 || index + 1 == content.elements ? 2 : 0;
}

}  // namespace

void fill(const DataPlace& place, const Content& content) {
    if (place.handle.isNull()) return;
    if (!place.shape.isArray) return fillOne(place, content);
    remake(place, indicesOf(content));
    VArrayDataHandle array(place.handle);
    for (std::size_t i = 0; i < content.elements; ++i) {
        Content element = content;
        element.seed = seedOf(content.seed, i);
        element.elements = elementsWithin(content, i);
        fillOne({place.shape, array.outputValue()}, element);
        array.next();
    }
}

}  // namespace Tolvane::Tools
