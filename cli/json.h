// JSON texts, one object a line.
#ifndef PLEXORN_CLI_JSON_H
#define PLEXORN_CLI_JSON_H

#include <concepts>
#include <string>
#include <string_view>
#include <type_traits>

namespace plexorn {

// Builds one JSON value in a string. Names and texts are UTF-8; bytes that are none become U+FFFD.
class CJson {
public:
    // Begin and end an object or an array: the whole value, or the value of a member or an element.
    CJson& Open(char bracket);
    CJson& Close(char bracket);
    // The name of a member; its value follows.
    CJson& Name(std::string_view name);

    CJson& Text(std::string_view text);
    CJson& Number(double number); // one that is not finite becomes null
    CJson& Null() { return Raw("null"); }
    CJson& Flag(bool value) { return Raw(value ? "true" : "false"); }
    template <std::integral Number>
    CJson& Count(Number number)
    {
        return Raw(std::to_string(number));
    }

    // A number that stands as its digits already.
    CJson& Digits(std::string_view digits) { return Raw(digits); }

    // A member of the object that is open.
    CJson& Member(std::string_view name, std::string_view text) { return Name(name).Text(text); }
    template <class Number>
    requires std::is_arithmetic_v<Number> CJson& Member(std::string_view name, Number value)
    {
        if constexpr (std::is_same_v<Number, bool>)
            return Name(name).Flag(value);
        else if constexpr (std::is_integral_v<Number>)
            return Name(name).Count(value);
        else
            return Name(name).Number(value);
    }

    // What was built until now.
    const std::string& Result() const { return m_strOut; }

private:
    CJson& Raw(std::string_view text);
    void Separate();

    std::string m_strOut;
    bool m_bNeedsComma = false;
};

} // namespace plexorn

#endif
