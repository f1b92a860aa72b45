#include "tools/rig/Timing.h"
#include "tools/support/Error.h"

#include <cmath>

#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;

constexpr double kFilm = 24e3 / 1001;
constexpr double kTelevision = 30e3 / 1001;

// The timing of an animation of one channel with keys at these ticks, 0 per second if it does not
// say.
Timing timed(double ticksPerSecond, const std::vector<double>& ticks,
             std::optional<double> rate = std::nullopt, FileKind kind = FileKind::Other) {
    aiAnimation animation;
    animation.mTicksPerSecond = ticksPerSecond;
    aiNodeAnim channel;
    channel.mNumPositionKeys = static_cast<unsigned>(ticks.size());
    channel.mPositionKeys = new aiVectorKey[ticks.size()];
    for (std::size_t i = 0; i < ticks.size(); ++i) channel.mPositionKeys[i].mTime = ticks[i];
    return timingOf(animation, {{0, &channel}}, kind, rate, "file");
}

// Times of keys in each frame from the first to the last, as a file in single precision has them.
std::vector<double> baked(double rate, int first, int last) {
    std::vector<double> times;
    for (int frame = first; frame <= last; ++frame)
        times.push_back(static_cast<double>(static_cast<float>(frame / rate)));
    return times;
}

std::vector<double> rounded(std::vector<double> times, double step) {
    for (double& time : times) time = std::round(time / step) * step;
    return times;
}

TEST(UsualRate, IsTheOneThatARoundedNumberMeans) {
    const std::pair<double, double> cases[] = {
        {24, 24},
        {30, 30},
        {13, 13},
        {1 / 0.0083333, 120},
        {1 / 0.008333, 120},
        {1 / 0.033333, 30},
        {1 / 0.0333, 30},
        {1 / 0.033, 30},
        {1 / 0.0333667, kTelevision},
        {1 / 0.033367, kTelevision},
        {1 / 0.0417083, kFilm},
        {1 / 0.0416667, 24},
        {1 / 0.0417, 24},
        {1 / 0.01667, 60},
        {1 / 0.016683, 60e3 / 1001},
        {1 / 0.04, 25},
        {1 / 0.008, 125},
        {29.97, kTelevision},
        {23.976, kFilm},
        {23.98, kFilm},
        {59.94, 60e3 / 1001},
        {29.9999, 30},
    };
    for (const auto& [given, meant] : cases) {
        EXPECT_DOUBLE_EQ(usualRate(given), meant) << given;
        EXPECT_DOUBLE_EQ(usualRate(static_cast<double>(static_cast<float>(given))), meant) << given;
        const auto inverse = static_cast<double>(static_cast<float>(1 / given));
        EXPECT_DOUBLE_EQ(usualRate(1 / inverse), meant) << given;
    }
}

TEST(UsualRate, LeavesWhatIsNearNone) {
    for (const double rate : {17.3, 33.37, 29.5, 0.7, 1234.56}) EXPECT_EQ(usualRate(rate), rate);
}

TEST(RateOfKeys, IsTheirsWhereThereIsOneInEachFrame) {
    for (const double rate : {10., 12., 15., 20., kFilm, 24., 25., kTelevision, 30., 48., 50.,
                              60e3 / 1001, 60., 90., 120., 240.}) {
        EXPECT_EQ(rateOfKeys(baked(rate, 0, 100)), rate);
        EXPECT_EQ(rateOfKeys(baked(rate, 1, 50)), rate);
        EXPECT_EQ(rateOfKeys(baked(rate, 2000, 9000)), rate);
        EXPECT_EQ(rateOfKeys(rounded(baked(rate, 0, 100), 1e-4)), rate);
    }
    for (const double rate : {24., 25., 30.})
        EXPECT_EQ(rateOfKeys(rounded(baked(rate, 0, 100), 0.01)), rate);
}

TEST(RateOfKeys, IsOneOnWhoseFramesTheyLie) {
    EXPECT_EQ(rateOfKeys({0, 5 / 24., 11 / 24., 2}), 24);
    EXPECT_EQ(rateOfKeys({0, 0.2083, 0.4583, 2}), 24);
    EXPECT_EQ(rateOfKeys({0.04, 1.48, 2}), 25);
    EXPECT_EQ(rateOfKeys({1 / 60., 1}), 60);
    EXPECT_EQ(rateOfKeys({0, 7 / kFilm, 100 / kFilm}), kFilm);
    EXPECT_EQ(rateOfKeys({0, 7 / kTelevision, 100 / kTelevision}), kTelevision);
}

TEST(RateOfKeys, IsThirtyWhereTheyLieOnFramesOfAnyRate) {
    for (const std::vector<double>& times :
         {std::vector<double>{}, {0}, {0, 1, 2, 3, 4, 5}, {1, 3}, {0, 0.5, 1, 1.5, 2}})
        EXPECT_EQ(rateOfKeys(times), 30);
}

TEST(RateOfKeys, IsUnknownWhereTheyLieAnywhere) {
    EXPECT_EQ(rateOfKeys({0, 0.1234567, 0.7654321, 1.9}), std::nullopt);
}

TEST(Timing, CountsTicksAsFramesWhereTheirRateIsUsualForFrames) {
    for (const double rate : {24., 25., 30., 60., 120., 240.}) {
        const Timing timing = timed(rate, {0, 20});
        EXPECT_EQ(timing.framesPerSecond, rate);
        EXPECT_EQ(timing.ticksPerFrame, 1);
        EXPECT_EQ(timing.frameCount, 21);
        EXPECT_DOUBLE_EQ(timing.seconds, 20 / rate);
    }
}

TEST(Timing, CountsTicksAsFramesAtAnyRateWhereTheKindOfFileDoes) {
    for (const FileKind kind : {FileKind::B3d, FileKind::Bvh, FileKind::Md5})
        for (const double rate : {0.1, 0.5, 1., 300., 2000.}) {
            const Timing timing = timed(rate, {0, 1, 2, 3, 4}, std::nullopt, kind);
            EXPECT_EQ(timing.framesPerSecond, rate);
            EXPECT_EQ(timing.frameCount, 5);
        }
}

TEST(Timing, TakesTheRateOfTheKeysWhereTicksAreFractionsOfASecond) {
    EXPECT_EQ(timed(1000, {0, 40, 80, 120, 160}).framesPerSecond, 25);
    EXPECT_EQ(timed(1, {0, 0.04, 0.08, 0.12, 0.16}).framesPerSecond, 25);
    EXPECT_EQ(timed(4800, {0, 200, 400, 1400}).framesPerSecond, 24);
    EXPECT_EQ(timed(1000, {0, 1, 2, 3, 4}).framesPerSecond, 1000);
}

TEST(Timing, DoesNotTakeKeysThatAreSecondsApartForFrames) {
    for (const double second : {1., 1000.}) {
        const Timing timing = timed(second, {0, second, 2 * second, 3 * second});
        EXPECT_EQ(timing.framesPerSecond, 30);
        EXPECT_EQ(timing.frameCount, 91);
        EXPECT_EQ(timing.seconds, 3);
    }
}

TEST(Timing, TakesTheTicksOfItsKindOfFileWhereItStatesNone) {
    const Timing counted = timed(0, {0, 160, 320, 480, 640}, std::nullopt, FileKind::X);
    EXPECT_EQ(counted.framesPerSecond, 30);
    EXPECT_EQ(counted.frameCount, 5);
    EXPECT_EQ(timed(25, {0, 1, 2}, std::nullopt, FileKind::Smd).framesPerSecond, 30);
    EXPECT_EQ(timed(0, {0, 1, 2}).frameCount, 3);
}

TEST(Timing, CountsALastFrameThatRoundingPutsBehindTheLastKey) {
    EXPECT_EQ(timed(1, {0, 3.3333}, 30).frameCount, 101);
    EXPECT_EQ(timed(1000, {0, 3333.3}, 30).frameCount, 101);
    EXPECT_EQ(timed(1000, {0, static_cast<double>(1000 * (10.F / 3))}, 30).frameCount, 101);
    EXPECT_EQ(timed(1, {0, 3.33}, 30).frameCount, 100);
    for (const double rate : {kFilm, 24., kTelevision, 30., 60., 120., 240.})
        for (const int last : {1, 7, 100, 12345, 500'000})
            EXPECT_EQ(timed(1, baked(rate, last, last), rate).frameCount, last + 1);
}

TEST(Timing, HasAFrameWhereNothingMoves) {
    const Timing timing = timed(24, {});
    EXPECT_EQ(timing.frameCount, 1);
    EXPECT_EQ(timing.seconds, 0);
    EXPECT_EQ(timed(1, {-3, -2}).frameCount, 1);
}

TEST(Timing, RefusesATickRateThatIsNone) {
    for (const double rate : {-1., std::nan(""), HUGE_VAL, 1e-310})
        for (const FileKind kind : {FileKind::Other, FileKind::Md5})
            EXPECT_THROW(timed(rate, {0}, std::nullopt, kind), Error) << rate;
    EXPECT_EQ(timed(1e-300, {0}, std::nullopt, FileKind::Md5).framesPerSecond, 1e-300);
}

}  // namespace
