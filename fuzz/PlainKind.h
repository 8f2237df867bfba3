// A kind of record: its fields and the rules that fill them, as plain data.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// How the value of a field is read.
enum class PlainConversion {
    None, // no code fills it
    Real,
    Integer,
    IntegerAsReal, // an integer in a field of reals
    Text,          // trimmed
    RawText,       // as it is
    Group,         // the lines of brace-delimited groups
    PendingX,      // of a vertex; no field of its own
    Vertex,        // the y that completes a vertex
    Dash,          // one of a list of reals
};

struct PlainField {
    std::string name;
    int firstCode;
    int lastCode;
    PlainConversion conversion;
    std::string initial; // as texts of records show it
    bool isText;
};

// The fields of a kind of record in their order, and the rules by which a file fills them. A field without a
// rule is never filled. The record's own fields come before those that it shares when a code is looked for.
class PlainKind {
public:
    explicit PlainKind(std::string_view name = {}) : m_name(name) {}

    // Fields are added in the order of the record, as many shared ones first as AddShared was called for.
    void AddField(std::string_view name, bool isText);
    void AddShared() { ++m_own; }

    // Each is the rule of a field, or of the three fields of a point with codes ten apart. A name that no
    // field has ends the program.
    PlainKind& Real(std::string_view name, int code, std::string_view initial = "0");
    PlainKind& Integer(std::string_view name, int code, std::string_view initial = "0");
    PlainKind& Integers(std::string_view name, int firstCode, int lastCode);
    PlainKind& Text(std::string_view name, int code);
    PlainKind& RawText(std::string_view name, int code);
    PlainKind& Group(std::string_view name, int code);
    PlainKind& Point(std::string_view name, int code);
    PlainKind& Extrusion();
    PlainKind& Rule(std::string_view name, int firstCode, int lastCode, PlainConversion conversion,
                    std::string_view initial = "");
    PlainKind& Constant(std::string_view name, std::string_view value);
    // The code of the x that waits for the y of a vertex.
    PlainKind& PendingX(int code);

    // The field of a code, -1 for none. own says whether it may be a shared one.
    int Find(int code, bool own) const;

    const std::string& Name() const { return m_name; }
    const std::vector<PlainField>& Fields() const { return m_fields; }

private:
    std::string m_name; // the type or marker in a file
    std::vector<PlainField> m_fields;
    std::size_t m_own = 0;
};
