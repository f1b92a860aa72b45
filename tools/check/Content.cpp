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

constexpr std::size_t kFew = 3;
constexpr std::size_t kMany = 100;

double notANumber(std::uint64_t seed) {
    const std::uint64_t sign = (seed & 1) << 63;
    const std::uint64_t quiet = (seed & 2) << 50;
    // Without any payload, a signalling one would be an infinity.
    const std::uint64_t bits = sign | 0x7ff0'0000'0000'0000 | quiet | (seed >> 14) | 1;
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
    for (std::uint64_t i = 0; i < 255; ++i)
        text += static_cast<char>(1 + (i * 7 + seed % 255) % 255);
    return text;
}

std::string generatedText(Texts texts, std::uint64_t seed) {
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
        handle.setString(generatedText(content.texts, content.seed).c_str());
    else if (place.shape.kind == DataShape::Kind::Double && !plainNumbers)
        handle.setDouble(numberOf(content.numbers, content.seed));
    else if (place.shape.kind == DataShape::Kind::Matrix && !plainNumbers)
        handle.setMatrix(matrixOf(content.numbers, content.seed));
    else
        generateData(place, content.seed);
}

void fillCounting(const DataPlace& place, Content content, std::size_t& arrays);

void fillOne(const DataPlace& place, const Content& content, std::size_t& arrays) {
    if (place.shape.kind != DataShape::Kind::Compound) return fillLeaf(place, content);
    const std::size_t parts = place.shape.children.size();
    for (std::size_t i = 0; i < parts; ++i) {
        Content part = content;
        part.seed = seedOf(content.seed, i);
        if (content.isVaried) part.elements += 1 + (seedOf(content.seed, parts) + i) % parts;
        fillCounting(place.child(i), part, arrays);
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

// `arrays` counts those that have been met.
void fillCounting(const DataPlace& place, Content content, std::size_t& arrays) {
    if (place.handle.isNull()) return;
    if (!place.shape.isArray) return fillOne(place, content, arrays);
    if (content.onlyArray && *content.onlyArray != arrays) content.elements = kFew;
    ++arrays;
    content.onlyArray.reset();
    remake(place, indicesOf(content));
    VArrayDataHandle array(place.handle);
    for (std::size_t i = 0; i < content.elements; ++i) {
        Content element = content;
        element.seed = seedOf(content.seed, i);
        element.elements = elementsWithin(content, i);
        std::size_t withinElement = 0;
        fillOne({place.shape, array.outputValue()}, element, withinElement);
        array.next();
    }
}

const char* wordsFor(Numbers numbers) {
    switch (numbers) {
        case Numbers::NotNumbers:
            return ", numbers that are NaN";
        case Numbers::Extreme:
            return ", infinities, negative zeros and denormal numbers";
        case Numbers::Plain:
            break;
    }
    return "";
}

const char* wordsFor(Texts texts) {
    switch (texts) {
        case Texts::Empty:
            return ", empty texts";
        case Texts::Long:
            return ", long texts";
        case Texts::BlankEdged:
            return ", texts with blanks at both ends";
        case Texts::AnyByte:
            return ", texts of any bytes";
        case Texts::Plain:
            break;
    }
    return "";
}

}  // namespace

std::string inWords(const Content& content) {
    const std::string where =
        content.onlyArray ? "array number " + std::to_string(*content.onlyArray + 1) : "each array";
    return std::to_string(content.elements) + (content.elements == 1 ? " element" : " elements") +
           (content.isVaried ? " or some more" : "") + " in " + where +
           (content.sparse ? ", with gaps in their indices" : "") + wordsFor(content.numbers) +
           wordsFor(content.texts);
}

std::size_t arraysOf(const DataShape& shape) {
    if (shape.isArray) return 1;
    std::size_t arrays = 0;
    for (const DataShape& child : shape.children) arrays += arraysOf(child);
    return arrays;
}

void fill(const DataPlace& place, const Content& content) {
    std::size_t arrays = 0;
    fillCounting(place, content, arrays);
}

}  // namespace Tolvane::Tools
