#include "tests/support/RunTogether.h"

#include <OpenVornik/VErrorListener.h>
#include <OpenVornik/VGlobal.h>

#include <string>
#include <vector>

#include <gtest/gtest.h>

using Messages = std::vector<std::string>;

namespace {

VErrorListener::Receive into(Messages& messages) {
    return [&messages](const VString& message) { messages.emplace_back(message.asChar()); };
}

}  // namespace

TEST(Message, MessageGoesToEveryListenerAndNotToStandardError) {
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

TEST(Message, MessageGoesToStandardErrorIfNobodyListens) {
    Messages messages;
    { const VErrorListener listener(into(messages)); }
    testing::internal::CaptureStderr();
    VGlobal::displayError("100% wrong");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "100% wrong\n");
    EXPECT_TRUE(messages.empty());
}

TEST(Message, MessagesOfSeveralThreadsAreReceivedOneAtATime) {
    Messages messages;
    const VErrorListener listener(into(messages));
    TestSupport::runTogether(2, [](std::size_t) {
        for (int i = 0; i < 1000; ++i) VGlobal::displayError("wrong");
    });
    EXPECT_EQ(messages, Messages(2000, "wrong"));
}
