// Values as bytes, to be sent from one process to another. One function that takes either class as
// its first parameter describes a message for both directions:
//
//     constexpr auto exchange = [](auto& message, auto& person) {
//         message.number(person.age);
//         message.text(person.name);
//     };
//     const std::string bytes = packed(person, exchange);
//     const Person same = unpacked<Person>(bytes, exchange);
//
// What is read is not trusted: MessageIn throws BadMessage for whatever MessageOut cannot have
// written, before it takes more memory than a small multiple of the message.
#pragma once

#include <cstdint>
#include <cstring>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <vector>

namespace Tolvane::Tools {

class BadMessage : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The size of the numbers that a tuple refers to, without the gaps that these may have in memory.
template <typename Tuple>
struct SizeOf;
template <typename... Numbers>
struct SizeOf<std::tuple<Numbers&...>>
    : std::integral_constant<std::size_t, (sizeof(Numbers) + ...)> {};

class MessageOut {
public:
    template <typename Number>
    void number(const Number& number) {
        static_assert(std::is_arithmetic_v<Number> && !std::is_same_v<Number, bool>);
        m_bytes.append(reinterpret_cast<const char*>(&number), sizeof number);
    }
    void flag(const bool& flag) { m_bytes += flag ? '\1' : '\0'; }
    // One of the first `count` of an enumeration.
    template <typename Enumeration>
    void choice(const Enumeration& choice, std::size_t) {
        number(static_cast<std::uint32_t>(choice));
    }
    void text(const std::string& text) {
        number(std::uint64_t{text.size()});
        m_bytes += text;
    }
    template <typename Value, typename Each>
    void list(const std::vector<Value>& values, std::size_t, const Each& each) {
        number(std::uint64_t{values.size()});
        for (const Value& value : values) each(value);
    }
    // Values that are a few numbers each, to which `numbers` gives a tuple of references. Much
    // faster than a list.
    template <typename Value, typename Numbers>
    void rows(const std::vector<Value>& values, const Numbers& numbers) {
        number(std::uint64_t{values.size()});
        std::size_t end = m_bytes.size();
        m_bytes.resize(end +
                       values.size() * SizeOf<std::invoke_result_t<Numbers, const Value&>>::value);
        const auto write = [&](const auto&... each) {
            ((std::memcpy(&m_bytes[end], &each, sizeof each), end += sizeof each), ...);
        };
        for (const Value& value : values) std::apply(write, numbers(value));
    }
    template <typename Value, typename Each>
    void optional(const std::optional<Value>& value, const Each& each) {
        flag(value.has_value());
        if (value) each(*value);
    }

    std::string take() { return std::move(m_bytes); }

private:
    std::string m_bytes;
};

class MessageIn {
public:
    // `bytes` must outlive it.
    explicit MessageIn(std::string_view bytes) : m_rest(bytes) {}

    template <typename Number>
    void number(Number& number) {
        static_assert(std::is_arithmetic_v<Number> && !std::is_same_v<Number, bool>);
        std::memcpy(&number, bytes(sizeof number).data(), sizeof number);
    }
    void flag(bool& flag) {
        const char byte = bytes(1)[0];
        if (byte != '\0' && byte != '\1') throw BadMessage("a flag is neither set nor unset");
        flag = byte == '\1';
    }
    template <typename Enumeration>
    void choice(Enumeration& choice, std::size_t count) {
        std::uint32_t read = 0;
        number(read);
        if (read >= count) throw BadMessage("there is no such choice");
        choice = static_cast<Enumeration>(read);
    }
    void text(std::string& text) { text = bytes(size()); }
    // At most `most` values, each of which takes at least one byte.
    template <typename Value, typename Each>
    void list(std::vector<Value>& values, std::size_t most, const Each& each) {
        const std::uint64_t count = size();
        if (count > most) throw BadMessage("a list is too long");
        values.clear();
        while (values.size() < count) each(values.emplace_back());
    }
    template <typename Value, typename Numbers>
    void rows(std::vector<Value>& values, const Numbers& numbers) {
        const std::uint64_t count = size();
        constexpr std::size_t kSize = SizeOf<std::invoke_result_t<Numbers, Value&>>::value;
        if (count > m_rest.size() / kSize) throw BadMessage("it ends too soon");
        values.resize(static_cast<std::size_t>(count));
        const char* place = bytes(count * kSize).data();
        const auto read = [&](auto&... each) {
            ((std::memcpy(&each, place, sizeof each), place += sizeof each), ...);
        };
        for (Value& value : values) std::apply(read, numbers(value));
    }
    template <typename Value, typename Each>
    void optional(std::optional<Value>& value, const Each& each) {
        bool exists = false;
        flag(exists);
        value.reset();
        if (exists) each(value.emplace());
    }

    // Throws BadMessage if anything is left.
    void end() const {
        if (!m_rest.empty()) throw BadMessage("there are bytes behind the end");
    }

private:
    std::string_view bytes(std::uint64_t count) {
        if (count > m_rest.size()) throw BadMessage("it ends too soon");
        const std::string_view taken = m_rest.substr(0, static_cast<std::size_t>(count));
        m_rest.remove_prefix(taken.size());
        return taken;
    }
    std::uint64_t size() {
        std::uint64_t size = 0;
        number(size);
        return size;
    }

    std::string_view m_rest;
};

template <typename Value, typename Exchange>
std::string packed(const Value& value, const Exchange& exchange) {
    MessageOut message;
    exchange(message, value);
    return message.take();
}

// Throws BadMessage if `bytes` is no such message, or more than one.
template <typename Value, typename Exchange>
Value unpacked(std::string_view bytes, const Exchange& exchange) {
    Value value;
    MessageIn message(bytes);
    exchange(message, value);
    message.end();
    return value;
}

}  // namespace Tolvane::Tools
