// Values as bytes, to be sent from one process to another. One function that takes either class as
// its first parameter describes a message for both directions:
//
//     template <typename Message>
//     void exchange(Message& message, Person& person) {
//         message.number(person.age);
//         message.text(person.name);
//     }
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
#include <type_traits>
#include <vector>

namespace Tolvane::Tools {

class BadMessage : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

class MessageOut {
public:
    static constexpr bool isRead = false;

    template <typename Number>
    void number(const Number& number) {
        static_assert(std::is_arithmetic_v<Number> && !std::is_same_v<Number, bool>);
        m_bytes.append(reinterpret_cast<const char*>(&number), sizeof number);
    }
    void flag(const bool& flag) { m_bytes += flag ? '\1' : '\0'; }
    void text(const std::string& text) {
        number(std::uint64_t{text.size()});
        m_bytes += text;
    }
    template <typename Value, typename Each>
    void list(const std::vector<Value>& values, std::size_t, const Each& each) {
        number(std::uint64_t{values.size()});
        for (const Value& value : values) each(value);
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
    static constexpr bool isRead = true;

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
    void text(std::string& text) { text = bytes(size()); }
    // At most `most` values, each of which takes at least one byte.
    template <typename Value, typename Each>
    void list(std::vector<Value>& values, std::size_t most, const Each& each) {
        const std::uint64_t count = size();
        if (count > most) throw BadMessage("a list is too long");
        values.clear();
        while (values.size() < count) each(values.emplace_back());
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

}  // namespace Tolvane::Tools
