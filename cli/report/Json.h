// JSON texts, one object a line.
#pragma once

#include <concepts>
#include <string>
#include <string_view>
#include <type_traits>

namespace plexorn {

// Builds one JSON value in a string. Names and texts are UTF-8; invalid bytes become U+FFFD.
class Json {
public:
    // Begin and end an object or an array: the whole value, or the value of a member or an element.
    Json& Open(char bracket);
    Json& Close(char bracket);
    // The name of a member; its value follows.
    Json& Name(std::string_view name);

    Json& Text(std::string_view text);
    Json& Number(double number); // one that is not finite becomes null
    Json& Null() { return Raw("null"); }
    Json& Flag(bool value) { return Raw(value ? "true" : "false"); }
    template <std::integral Number>
    Json& Count(Number number)
    {
        return Raw(std::to_string(number));
    }

    // A number that is written as digits already.
    Json& Digits(std::string_view digits) { return Raw(digits); }

    // A member of the object that is open.
    Json& Member(std::string_view name, std::string_view text) { return Name(name).Text(text); }
    template <class Number>
    requires std::is_arithmetic_v<Number> Json& Member(std::string_view name, Number value)
    {
        if constexpr (std::is_same_v<Number, bool>)
            return Name(name).Flag(value);
        else if constexpr (std::is_integral_v<Number>)
            return Name(name).Count(value);
        else
            return Name(name).Number(value);
    }

    // What has been built so far.
    const std::string& Result() const { return m_out; }

private:
    Json& Raw(std::string_view text);
    void Separate();

    std::string m_out;
    bool m_needsComma = false;
};

} // namespace plexorn
