// How the graph's holders hold the library's values: on the heap, with a count of the holders that
// share a value, which nobody changes once it is held.
#pragma once

#include "tests/check/libraries/plain/Fault.h"
#include "tests/check/libraries/plain/Records.h"

#include <Pelmor/AnyValue.h>
#include <Pelmor/AnyValueManager.h>
#include <Pelmor/TypeInfo.h>

#include <atomic>
#include <new>
#include <typeinfo>
#include <utility>

namespace Plain {

template <typename T>
inline const Pelmor::Internal::TypeInfo kIdentity{typeid(T*).name(), 0};

template <typename T>
struct Held {
    T value;
    std::atomic<int> holders{1};
};

template <typename T>
void manage(Pelmor::AnyValueRequest* request);

// Of a value that the holder has one share of.
template <typename T>
Pelmor::AnyValueWords wordsOf(Held<T>* held) {
    Pelmor::AnyValueWords words{};
    new (words.storage) Held<T>*(held);
    words.manager = &manage<T>;
    return words;
}

template <typename T>
void share(Held<T>& held) {
    if (!fault("values/copies-on-threads")) {
        ++held.holders;
        return;
    }
    const int holders = held.holders;
    dawdle();
    held.holders = holders + 1;
}

template <typename T>
void drop(Held<T>* held) {
    if (fault("values/copies")) held->value = T();
    if (--held->holders == 0) delete held;
}

template <typename T>
void manage(Pelmor::AnyValueRequest* request) {
    using Pelmor::AnyValueOp;
    using Pelmor::Internal::TypeInfo;
    auto& holder = *static_cast<Pelmor::AnyValueWords*>(request->operand1);
    Held<T>* held = holder.template stored<Held<T>*>();
    switch (request->operation) {
        case AnyValueOp::Destroy:
            holder.manager = nullptr;
            return drop(held);
        case AnyValueOp::Copy:
            share(*held);
            *static_cast<Pelmor::AnyValueWords*>(request->operand2) = wordsOf(held);
            return;
        case AnyValueOp::Move:
            *static_cast<Pelmor::AnyValueWords*>(request->operand2) = holder;
            holder = {};
            return;
        case AnyValueOp::GetIfType: {
            const auto& wanted = *static_cast<const TypeInfo*>(request->operand2);
            const bool isHeld = typeInfoEquals(wanted, kIdentity<T>);
            request->operand3 = isHeld ? &held->value : nullptr;
            return;
        }
        case AnyValueOp::Get:
            request->operand2 = &held->value;
            return;
        case AnyValueOp::QueryType:
            request->operand2 = const_cast<TypeInfo*>(fault("values/type-known") ? &kIdentity<Pose>
                                                                                 : &kIdentity<T>);
            return;
    }
}

// What `value` holds, or null if it holds no T.
template <typename T>
const T* heldIn(const Pelmor::AnyValue& value) {
    return static_cast<const T*>(value.getIf(kIdentity<T>));
}

template <typename T>
Pelmor::AnyValue hold(T&& value) {
    if (fault("values/readings-share-nothing")) {
        static auto* const held = new Held<T>;
        held->value = std::move(value);
        share(*held);
        return Pelmor::AnyValue::adopting(wordsOf(held));
    }
    return Pelmor::AnyValue::adopting(wordsOf(new Held<T>{std::move(value)}));
}

}  // namespace Plain
