#include "tools/check/Case.h"
#include "tools/check/Passage.h"
#include "tools/check/Trial.h"
#include "tools/node/GenerateData.h"
#include "tools/node/GraphLayout.h"

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

// Carries the contents, one after the other, over the same attributes, for each type.
void carry(Trial& trial, std::initializer_list<Content> contents) {
    for (const Pelmor::Type& type : trial.carried()) {
        Passage passage(trial, type);
        std::uint64_t number = 0;
        for (Content content : contents) {
            content.seed = seedOf(trial.seed(), number++);
            passage.carry(content);
        }
    }
}

void carried(Trial& trial) {
    carry(trial, {elements(3)});
    for (const Pelmor::Type& type : trial.carried()) {
        const Pelmor::AnyValue value = Passage(trial, type).fillAndRead(elements(3));
        if (const auto misfit = ElementLayout(type).misfitOf(value))
            trial.fail("elements of " + nameOf(type) + " are as the graph has them", *misfit);
    }
}

void emptyArrays(Trial& trial) { carry(trial, {elements(3), elements(0), elements(0)}); }

void oneElement(Trial& trial) { carry(trial, {elements(1)}); }

void manyElements(Trial& trial) { carry(trial, {elements(257)}); }

// One array at a time, for all of them at once might take more memory than there is.
void elements65537(Trial& trial) {
    for (const Pelmor::Type& type : trial.carried()) {
        const std::size_t arrays = arraysOf(Passage(trial, type).input().shape);
        for (std::size_t i = 0; i < arrays; ++i) {
            Content content = elements(65'537);
            content.seed = trial.seed();
            content.onlyArray = i;
            Passage(trial, type).carry(content);
        }
    }
}

void sparseArrays(Trial& trial) {
    Content content = elements(5);
    content.sparse = true;
    carry(trial, {content});
}

void growing(Trial& trial) { carry(trial, {elements(2), elements(40)}); }

void shrinking(Trial& trial) { carry(trial, {elements(40), elements(2)}); }

void sameLength(Trial& trial) { carry(trial, {elements(5), elements(5)}); }

void notNumbers(Trial& trial) { carry(trial, {of(Numbers::NotNumbers)}); }

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
    for (const Pelmor::Type& type : trial.carried()) {
        Passage passage(trial, type);
        for (const Content& content : {elements(3), elements(0), sparse, odd}) {
            passage.fillAndRead(content);
            trial.doing("comparing the input of " + nameOf(type) + " with what it was before, " +
                        inWords(content));
            passage.expectInput(content);
        }
    }
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
