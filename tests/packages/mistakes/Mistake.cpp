// A translation with one slip of its author's: MISTAKE says which; 0 is none.
#include <Tolvane/Translation.h>

struct Inner {
    double number = 0;
};

#if MISTAKE == 10
#define INNER_MEMBERS &Inner::number, &Inner::number
#else
#define INNER_MEMBERS &Inner::number
#endif

template <>
struct Tolvane::Page<Inner> {
    static constexpr const char* typeName = "Studio::Inner";
    static constexpr std::tuple members{INNER_MEMBERS};
};

struct Record {
    double number = 0;
    Inner inner;
#if MISTAKE == 1
    float other = 0;
#elif MISTAKE == 2
    Pelmor::SharedArray<Pelmor::Ptr<double>> other;
#else
    double other = 0;
#endif
};

#if MISTAKE == 3
#define MEMBERS &Record::number, &Record::inner, &Record::other, &Record::number
#else
#define MEMBERS &Record::number, &Record::inner, &Record::other
#endif

#if MISTAKE == 4
#define NAME "Studio: :Record"
#elif MISTAKE == 5
#define NAME ""
#elif MISTAKE == 6
#define NAME "array<Record>"
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
