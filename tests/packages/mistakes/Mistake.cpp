// A translation with one slip of its author's: MISTAKE says which; 0 is none.
#include <Tolvane/Translation.h>

namespace Studio {

struct Inner {
    double number = 0;
};

}  // namespace Studio
using Studio::Inner;

#if MISTAKE == 10
#define INNER_MEMBERS &Inner::number, &Inner::number
#else
#define INNER_MEMBERS &Inner::number
#endif

#if MISTAKE == 4
#define INNER_NAME "Studio: :Inner"
#elif MISTAKE == 5
#define INNER_NAME ""
#elif MISTAKE == 6
#define INNER_NAME "array<Inner>"
#else
#define INNER_NAME "Studio::Inner"
#endif

template <>
struct Tolvane::Page<Inner> {
    static constexpr const char* typeName = INNER_NAME;
    static constexpr std::tuple members{INNER_MEMBERS};
};

#if MISTAKE == 11 || MISTAKE == 17
namespace Stduio {
#else
namespace Studio {
#endif

struct Record {
    double number = 0;
    Inner inner;
#if MISTAKE == 13
    Pelmor::SharedArray<double> numbers;
#else
    Pelmor::SharedArray<double> numbers = Tolvane::newArray;
#endif
#if MISTAKE == 1
    float other = 0;
#elif MISTAKE == 2
    Pelmor::SharedArray<Pelmor::Ptr<double>> other;
#else
    double other = 0;
#endif
#if MISTAKE == 16
    double more = 0;
#endif
};

}  // namespace Studio or, by mistake, another
#if MISTAKE == 11 || MISTAKE == 17
using Stduio::Record;
#else
using Studio::Record;
#endif

#if MISTAKE == 3
#define MEMBERS &Record::number, &Record::inner, &Record::numbers, &Record::other, &Record::number
#elif MISTAKE == 14
#define MEMBERS &Record::inner, &Record::number, &Record::numbers, &Record::other
#elif MISTAKE == 15
#define MEMBERS &Record::number, &Record::inner, &Record::numbers
#else
#define MEMBERS &Record::number, &Record::inner, &Record::numbers, &Record::other
#endif

#if MISTAKE == 12
#define NAME "double"
#elif MISTAKE == 17
#define NAME "Stduio::Record"
#else
#define NAME "Studio::Record"
#endif

#if MISTAKE != 7
template <>
struct Tolvane::Page<Record> {
    static constexpr const char* typeName = NAME;
    static constexpr std::tuple members{MEMBERS};
};
#endif

#if MISTAKE == 8
#define RECORDS Record, Record
#elif MISTAKE == 18
#define RECORDS Inner
#else
#define RECORDS Record
#endif

#if MISTAKE == 9
#define FACTORY createTypeTranslation
#else
#define FACTORY createTavrikTypeTranslation
#endif

TavrikGraph::Executor::TypeTranslation* FACTORY();
TavrikGraph::Executor::TypeTranslation* FACTORY() {
    return new Tolvane::RecordTranslation<Tolvane::RecordList<RECORDS>>("Mistake");
}
