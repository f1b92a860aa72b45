#include <OpenVornik/VErrorListener.h>
#include <OpenVornik/VGlobal.h>

#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

using Messages = std::vector<std::string>;

namespace {

VErrorListener::Receive into(Messages& messages) {
    return [&messages](const VString& message) { messages.emplace_back(message.asChar()); };
}

}  // namespace

TEST(Message, GoesToEveryListenerAndNotToStandardError) {
    Messages first;
    Messages second;
    const VErrorListener one(into(first));
    const VErrorListener two(into(second));
    testing::internal::CaptureStderr();
    VGlobal::displayError("Internal error !");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(first, Messages{"Internal error !"});
    EXPECT_EQ(second, Messages{"Internal error !"});
}

TEST(Message, GoesToStandardErrorWhereNobodyListens) {
    Messages messages;
    { const VErrorListener listener(into(messages)); }
    testing::internal::CaptureStderr();
    VGlobal::displayError("100% wrong");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "100% wrong\n");
    EXPECT_TRUE(messages.empty());
}

TEST(Message, ComesFromAnyThreadOneAtATime) {
    Messages messages;
    const VErrorListener listener(into(messages));
    const auto complain = [] {
        for (int i = 0; i < 100; ++i) VGlobal::displayError("wrong");
    };
    std::thread other(complain);
    complain();
    other.join();
    EXPECT_EQ(messages, Messages(200, "wrong"));
}
