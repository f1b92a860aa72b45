#include "tools/check/Case.h"
#include "tools/check/EditedNode.h"
#include "tools/check/Passage.h"
#include "tools/check/Trial.h"
#include "tools/node/GenerateData.h"
#include "tools/node/GraphLayout.h"
#include "tools/support/OneLine.h"

#include <initializer_list>
#include <string>
#include <vector>

namespace Tolvane::Tools {
namespace {

using Numbers = Content::Numbers;
using Texts = Content::Texts;

Content elements(std::size_t count) {
    Content content;
    content.elements = count;
    return content;
}

Content of(Numbers numbers) {
    Content content;
    content.numbers = numbers;
    return content;
}

Content of(Texts texts) {
    Content content;
    content.texts = texts;
    return content;
}

// Content number `number` of a case.
Content seeded(const Trial& trial, Content content, std::uint64_t number) {
    content.seed = seedOf(trial.seed(), number);
    return content;
}

// Carries the contents, one after the other, over the same attributes, for each type.
void carry(Trial& trial, std::initializer_list<Content> contents) {
    trial.forEachCarried([&](const Pelmor::Type& type) {
        Passage passage(trial, type);
        std::uint64_t number = 0;
        for (const Content& content : contents) passage.carry(seeded(trial, content, number++));
    });
}

void carried(Trial& trial) {
    Content varied = elements(2);
    varied.isVaried = true;
    carry(trial, {elements(3)});
    carry(trial, {varied});
    trial.forEachCarried([&](const Pelmor::Type& type) {
        const Pelmor::AnyValue value = Passage(trial, type).fillAndRead(elements(3));
        if (const auto misfit = ElementLayout(type).misfitOf(value))
            trial.fail("elements of " + nameOf(type) + " are as the graph has them", *misfit);
    });
}

void emptyArrays(Trial& trial) { carry(trial, {elements(3), elements(0), elements(0)}); }

void oneElement(Trial& trial) { carry(trial, {elements(1)}); }

void manyElements(Trial& trial) { carry(trial, {elements(257)}); }

// One array at a time, for all of them at once might take more memory than there is.
void elements65537(Trial& trial) {
    trial.forEachCarried([&](const Pelmor::Type& type) {
        const std::size_t arrays = arraysOf(Passage(trial, type).input().shape);
        for (std::size_t i = 0; i < arrays; ++i) {
            Content content = elements(65'537);
            content.seed = trial.seed();
            content.onlyArray = i;
            Passage(trial, type).carry(content);
        }
    });
}

// The host refuses to remove an element that it lacks, on which a library may give up: right data,
// or a failure that is noticed, will do.
void writeOverSparse(Trial& trial, const Pelmor::Type& type, const Content& former,
                     const Content& content) {
    Passage passage(trial, type);
    const Pelmor::AnyValue value = passage.fillAndRead(content);
    passage.skipIfOnlyRead();
    passage.fillOutput(former);
    trial.doing("writing " + nameOf(type) + ", " + inWords(content) + ", over " + inWords(former));
    const ShownMessages messages;
    const bool result = passage.write(value);
    const std::string difference = passage.differenceOfOutputValues(content);
    const bool isNoticed = (!result || messages.sayAnything()) && !passage.isOutputClean();
    trial.expect(difference.empty() || isNoticed,
                 "what went in, or false or a message, and a dirty output", oneLine(difference));
}

void sparseArrays(Trial& trial) {
    Content sparse = elements(5);
    sparse.sparse = true;
    Content varied = sparse;
    varied.isVaried = true;
    carry(trial, {sparse});
    carry(trial, {varied});
    trial.forEachCarried([&](const Pelmor::Type& type) {
        for (const std::size_t count : {5U, 9U, 2U})
            writeOverSparse(trial, type, sparse, seeded(trial, elements(count), 1));
    });
}

void growing(Trial& trial) { carry(trial, {elements(2), elements(40)}); }

void shrinking(Trial& trial) { carry(trial, {elements(40), elements(2)}); }

void sameLength(Trial& trial) { carry(trial, {elements(5), elements(5)}); }

void notNumbers(Trial& trial) {
    Content several = of(Numbers::NotNumbers);
    several.elements = 17;
    carry(trial, {several});
}

void extremeNumbers(Trial& trial) { carry(trial, {of(Numbers::Extreme)}); }

void emptyTexts(Trial& trial) { carry(trial, {of(Texts::Plain), of(Texts::Empty)}); }

// The second is so long in few of its texts only.
void longTexts(Trial& trial) {
    Content many = of(Texts::Long);
    many.elements = 17;
    carry(trial, {of(Texts::Long), many});
}

void blankEdgedTexts(Trial& trial) { carry(trial, {of(Texts::BlankEdged)}); }

void anyByteTexts(Trial& trial) { carry(trial, {of(Texts::AnyByte)}); }

void inputUntouched(Trial& trial) {
    Content sparse = elements(3);
    sparse.sparse = true;
    Content odd = of(Numbers::NotNumbers);
    odd.texts = Texts::AnyByte;
    trial.forEachCarried([&](const Pelmor::Type& type) {
        Passage passage(trial, type);
        for (const Content& content : {elements(3), elements(0), sparse, odd}) {
            passage.fillAndRead(content);
            trial.doing("comparing the input of " + nameOf(type) + " with what it was before, " +
                        inWords(content));
            passage.expectInput(content);
        }
    });
}

}  // namespace

std::vector<Case> valueCases() {
    return {
        {"values/carried", "What a library names, it carries.", carried},
        {"values/empty-arrays",
         "A limb without pins has none, whatever was in the attribute before.", emptyArrays},
        {"values/one-element", "The smallest array is where a loop ends too soon.", oneElement},
        {"values/many-elements", "A face has hundreds of points.", manyElements},
        {"values/65537-elements", "A mesh has tens of thousands of points.", elements65537},
        {"values/sparse-arrays",
         "People delete elements in the middle of the host's arrays, which keep their indices.",
         sparseArrays},
        {"values/growing", "Joints are added while a graph is at work.", growing},
        {"values/shrinking",
         "Joints are removed while a graph is at work, and those left over would still move.",
         shrinking},
        {"values/same-length", "From frame to frame only the values change.", sameLength},
        {"values/not-numbers",
         "Graphs mark what is missing by NaNs, and tell them apart by their payload.", notNumbers},
        {"values/extreme-numbers",
         "Infinities bound, and the sign of zero chooses a branch; a carrier does not judge.",
         extremeNumbers},
        {"values/empty-texts", "A name that was deleted is empty, whatever it was before.",
         emptyTexts},
        {"values/long-texts", "Texts hold paths, expressions and whole scripts.", longTexts},
        {"values/blank-edged-texts", "Names that differ by a blank at the end are two names.",
         blankEdgedTexts},
        {"values/any-byte-texts", "Old scenes hold names in old encodings, and must find them.",
         anyByteTexts},
        {"values/input-untouched",
         "What the host gives is the artist's, and read by others afterwards.", inputUntouched},
    };
}

}  // namespace Tolvane::Tools
