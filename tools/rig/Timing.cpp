#include "tools/rig/Timing.h"

#include "tools/support/Error.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace Tolvane::Tools {
namespace {

constexpr double kDefaultRate = 30;
// Ticks at such a rate are frames, whatever the kind of file.
constexpr double kHighestLikelyRate = 240;
// Evenly spaced keys at such a rate are one for each frame; further apart, they were set by hand.
constexpr double kLowestBakedRate = 10;
constexpr double kHighestBakedRate = 1000;
constexpr std::size_t kFewestBakedKeys = 4;

// The most likely first: keys whole seconds apart lie on the frames of any.
constexpr std::array kUsualRates{30.,         24.,         25.,         60.,
                                 50.,         48.,         120.,        30e3 / 1001,
                                 24e3 / 1001, 60e3 / 1001, 48e3 / 1001, 120e3 / 1001};

bool isWhole(double number, double tolerance) {
    return std::abs(number - std::round(number)) <= tolerance;
}

// The step of the last digit of a number with few decimals that was in single precision since.
double lastDigit(double number) {
    double step = 1;
    while (!isWhole(number / step, 1e-6 + 1.2e-7 * number / step)) step /= 10;
    return step;
}

// Whether `number` is `exact`, rounded to its few digits, of which two at least count.
bool isRounded(double number, double exact) {
    const double step = lastDigit(number);
    return number >= 8 * step && std::abs(number - exact) <= 0.501 * step;
}

double ticksPerSecondOf(const aiAnimation& animation, FileKind kind, const std::string& path) {
    const double stated = animation.mTicksPerSecond;
    if (!hasTimeUnit(animation))
        throw Error(path + ": has an animation without a valid number of frames per second");
    // These files state none, and their reader makes up another than their makers use.
    if (kind == FileKind::Smd) return 30;
    if (stated > 0) return stated;
    if (kind == FileKind::B3d) return 60;
    // They count in 160ths of a frame of 1/30 second unless they say otherwise.
    if (kind == FileKind::X) return 4800;
    return kDefaultRate;
}

// Some kinds of file count time in frames, others in seconds or fractions of one.
bool countsFrames(FileKind kind, double ticksPerSecond) {
    switch (kind) {
        case FileKind::B3d:
        case FileKind::Bvh:
        case FileKind::Md5:
        case FileKind::Smd:
            return true;
        default:
            return ticksPerSecond > 1 && ticksPerSecond <= kHighestLikelyRate;
    }
}

template <typename Key>
void addTimes(const Key* keys, unsigned count, std::vector<double>& ticks) {
    for (unsigned i = 0; keys && i < count; ++i)
        if (std::isfinite(keys[i].mTime)) ticks.push_back(keys[i].mTime);
}

// Each once, in ascending order.
std::vector<double> keyTicks(const Channels& channels) {
    std::vector<double> ticks;
    for (const auto& [node, channel] : channels) {
        addTimes(channel->mPositionKeys, channel->mNumPositionKeys, ticks);
        addTimes(channel->mRotationKeys, channel->mNumRotationKeys, ticks);
        addTimes(channel->mScalingKeys, channel->mNumScalingKeys, ticks);
    }
    std::sort(ticks.begin(), ticks.end());
    ticks.erase(std::unique(ticks.begin(), ticks.end()), ticks.end());
    return ticks;
}

// Without those that follow closer than any frame does: the same time, rounded otherwise.
std::vector<double> apart(const std::vector<double>& times) {
    std::vector<double> result;
    for (const double time : times)
        if (result.empty() || time - result.back() > 0.25 / kHighestBakedRate)
            result.push_back(time);
    return result;
}

// Where there is a key in each frame, the mean distance is far more exact than any single one.
std::optional<double> bakedRate(const std::vector<double>& times) {
    if (times.size() < kFewestBakedKeys) return std::nullopt;
    const double length = times.back() - times.front();
    const double gap = length / static_cast<double>(times.size() - 1);
    if (1 / gap < kLowestBakedRate * 0.999 || 1 / gap > kHighestBakedRate * 1.001)
        return std::nullopt;
    double deviation = 0;
    for (std::size_t i = 0; i < times.size(); ++i)
        deviation =
            std::max(deviation, std::abs(times[i] - times.front() - gap * static_cast<double>(i)));
    if (deviation > gap * 0.2) return std::nullopt;

    const double rate = 1 / gap;
    const double tolerance = rate * std::max(1e-5, 2 * deviation / length);
    if (isWhole(rate, tolerance)) return std::round(rate);
    const auto* usual = std::find_if(kUsualRates.begin(), kUsualRates.end(), [&](double usualOne) {
        return std::abs(usualOne - rate) <= tolerance;
    });
    return usual == kUsualRates.end() ? rate : *usual;
}

bool lieOnFrames(const std::vector<double>& times, double rate, double tolerance) {
    // Times in single precision are the less exact the later they are.
    return std::all_of(times.begin(), times.end(), [&](double time) {
        return isWhole(time * rate, tolerance + std::abs(time) * rate * 2.5e-7);
    });
}

}  // namespace

std::optional<double> rateOfKeys(const std::vector<double>& times) {
    const std::vector<double> distinct = apart(times);
    if (const auto baked = bakedRate(distinct)) return baked;
    // Exact times first, then such as are given in four decimals.
    for (const double tolerance : {1e-4, 5e-3})
        for (const double rate : kUsualRates)
            if (lieOnFrames(distinct, rate, tolerance)) return rate;
    return std::nullopt;
}

bool hasTimeUnit(const aiAnimation& animation) {
    const double stated = animation.mTicksPerSecond;
    // So few ticks per second are possible that one lasts for ever.
    return stated == 0 || (stated > 0 && std::isfinite(stated) && std::isfinite(1 / stated));
}

double usualRate(double rate) {
    if (isWhole(rate, 1e-6 * rate)) return std::round(rate);
    for (const double usual : kUsualRates)
        if (isRounded(rate, usual) || isRounded(1 / rate, 1 / usual)) return usual;
    return isWhole(rate, 1e-4 * rate) ? std::round(rate) : rate;
}

Timing timingOf(const aiAnimation& animation, const Channels& channels, FileKind kind,
                std::optional<double> rate, const std::string& path) {
    const double ticksPerSecond = ticksPerSecondOf(animation, kind, path);
    const std::vector<double> ticks = keyTicks(channels);
    std::vector<double> seconds;
    seconds.reserve(ticks.size());
    for (const double tick : ticks) seconds.push_back(tick / ticksPerSecond);

    const bool ticksAreFrames = countsFrames(kind, ticksPerSecond);
    const double tickRate = ticksAreFrames ? usualRate(ticksPerSecond) : ticksPerSecond;
    const std::optional<double> own =
        ticksAreFrames ? std::optional(tickRate) : rateOfKeys(seconds);

    Timing timing;
    timing.framesPerSecond = rate.value_or(own.value_or(kDefaultRate));
    timing.ticksPerFrame = tickRate / timing.framesPerSecond;
    const double lastTick = ticks.empty() ? 0 : std::max(ticks.back(), 0.);
    timing.seconds = lastTick / tickRate;
    // Rounding may put the last frame slightly after the last key; it counts nevertheless. Times
    // often have four decimals, and in single precision about seven digits.
    const double frames = lastTick / timing.ticksPerFrame;
    timing.frameCount = std::floor(frames + std::max(1e-2, frames * 2.5e-7)) + 1;
    return timing;
}

}  // namespace Tolvane::Tools
