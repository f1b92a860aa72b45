#include "tools/node/TimedTranslation.h"

#include "tools/node/MedianTime.h"

#include <algorithm>
#include <ctime>

namespace Tolvane::Tools {

using namespace TavrikGraph::Executor;

namespace {

// Not little beside what a small record takes, for it is a call of the system.
std::chrono::nanoseconds timeOfAskingTheClock() {
    MedianTime times;
    for (int i = 0; i < 101; ++i) {
        const auto start = processorTime();
        times.add(processorTime() - start);
    }
    return times.median();
}

}  // namespace

std::chrono::nanoseconds processorTime() noexcept {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

TimedTranslation::TimedTranslation(TypeTranslation& translation)
    : ForwardingTranslation(translation), m_clockTime(timeOfAskingTheClock()) {}

std::chrono::nanoseconds TimedTranslation::timeOf(const VPlug& plug) const {
    const auto found = m_times.find(&plug);
    return found == m_times.end() ? std::chrono::nanoseconds() : found->second;
}

template <typename Translate>
bool TimedTranslation::timed(const VPlug* plug, Translate translate) const noexcept {
    const auto start = processorTime();
    const bool translated = translate();
    const auto end = processorTime();
    m_times[plug] = std::max(end - start - m_clockTime, std::chrono::nanoseconds(1));
    return translated;
}

bool TimedTranslation::translateFromHost(const Pelmor::Type& type, Pelmor::AnyValue& value,
                                         const HostContext& context) const noexcept {
    return timed(context.plug, [&] { return target().translateFromHost(type, value, context); });
}

bool TimedTranslation::translateToHost(const Pelmor::AnyValue& value,
                                       const HostContext& context) const noexcept {
    return timed(context.plug, [&] { return target().translateToHost(value, context); });
}

}  // namespace Tolvane::Tools
