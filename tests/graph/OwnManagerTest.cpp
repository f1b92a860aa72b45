// A manager and an identity as an author writes them who keeps values in a way of their own.
#include <Pelmor/AnyValue.h>

#include <typeinfo>
#include <utility>

#include <gtest/gtest.h>

namespace {

using Pelmor::AnyValue;
using Pelmor::AnyValueOp;
using Pelmor::AnyValueRequest;
using Pelmor::AnyValueWords;
using Identity = Pelmor::Internal::TypeInfo;

struct Marker {
    Pelmor::SharedArray<double> weights;
    double size[3];
};

const Identity g_markerIdentity(typeid(Marker*).name(), 0);
const Identity g_markersIdentity(typeid(Marker*).name(), 1);

void manageMarker(AnyValueRequest* request);

void keep(AnyValueWords& words, const Marker& marker) {
    words = {};
    words.stored<Marker*>() = new Marker(marker);
    words.manager = &manageMarker;
}

void manageMarker(AnyValueRequest* request) {
    auto& holder = *static_cast<AnyValueWords*>(request->operand1);
    auto* marker = holder.stored<Marker*>();
    switch (request->operation) {
        case AnyValueOp::Destroy:
            holder.manager = nullptr;
            delete marker;
            break;
        case AnyValueOp::Copy:
            keep(*static_cast<AnyValueWords*>(request->operand2), *marker);
            break;
        case AnyValueOp::Move:
            *static_cast<AnyValueWords*>(request->operand2) = std::exchange(holder, {});
            break;
        case AnyValueOp::GetIfType: {
            const auto& wanted = *static_cast<const Identity*>(request->operand2);
            request->operand3 = typeInfoEquals(wanted, g_markerIdentity) ? marker : nullptr;
            break;
        }
        case AnyValueOp::Get:
            request->operand2 = marker;
            break;
        case AnyValueOp::QueryType:
            request->operand2 = const_cast<Identity*>(&g_markerIdentity);
            break;
    }
}

TEST(AnyValueWithAManagerOfOnesOwn, HolderIsUsedLikeAnyOther) {
    const auto weights = Pelmor::makePtr<Pelmor::Array<double>>();
    AnyValueWords words;
    keep(words, {weights, {1, 2, 3}});
    {
        AnyValue holder = AnyValue::adopting(words);
        EXPECT_EQ(&holder.type(), &g_markerIdentity);
        EXPECT_EQ(holder.getIf(g_markerIdentity), words.stored<Marker*>());
        EXPECT_EQ(holder.getIf(g_markersIdentity), nullptr);
        ASSERT_EQ(holder.getIf<Marker>(), words.stored<Marker*>()) << "its identity is equal";

        const AnyValue copy(holder);
        ASSERT_NE(copy.getIf(g_markerIdentity), nullptr);
        EXPECT_NE(copy.getIf(g_markerIdentity), holder.getIf(g_markerIdentity));
        EXPECT_EQ(weights.useCount(), 3u);

        auto other = AnyValue::holding(2.5);
        other.moveAssign(holder);
        EXPECT_FALSE(holder.hasValue());
        EXPECT_EQ(other.getIf<Marker>()->size[2], 3);
        EXPECT_EQ(weights.useCount(), 3u);
    }
    EXPECT_EQ(weights.useCount(), 1u);
}

TEST(AnyValueWithAManagerOfOnesOwn, WordsWithoutAManagerAreAnEmptyHolder) {
    EXPECT_FALSE(AnyValue::adopting(AnyValueWords{}).hasValue());
}

}  // namespace
