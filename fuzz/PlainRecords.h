// Records as the format's tables list them, kept as texts: slow, plain, and made for comparing only.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// How the value of a field is read.
enum class PLAIN_CONVERSION {
    None, // no code fills it
    Real,
    Integer,
    IntegerAsReal, // an integer in a field of reals
    Text,          // trimmed
    RawText,       // as it stands
    Group,         // the lines of brace-delimited groups
    PendingX,      // of a vertex; no field of its own
    Vertex,        // the y that completes a vertex
    Dash,          // one of a list of reals
};

struct PLAIN_FIELD {
    std::string name;
    int firstCode;
    int lastCode;
    PLAIN_CONVERSION conversion;
    std::string initial; // as texts of records show it
    bool isText;
};

// The fields of a kind of record in their order; those from own on come before the shared ones when a code is
// looked for.
class PlainKind {
public:
    explicit PlainKind(std::string_view name = {}, std::string_view kind = {}) : m_name(name), m_kind(kind) {}

    // Each adds a field, or the three fields of a point with codes ten apart.
    PlainKind& Real(std::string_view name, int code, std::string_view initial = "0");
    PlainKind& Integer(std::string_view name, int code, std::string_view initial = "0");
    PlainKind& Integers(std::string_view name, int firstCode, int lastCode);
    PlainKind& Text(std::string_view name, int code);
    PlainKind& RawText(std::string_view name, int code);
    PlainKind& Point(std::string_view name, int code);
    PlainKind& Extrusion();
    PlainKind& Add(std::string_view name, int firstCode, int lastCode, PLAIN_CONVERSION conversion,
                   std::string_view initial = "", bool isText = false);
    // What follows is the record's own.
    PlainKind& Own();

    // The field of a code, -1 for none. own tells whether it may be a shared one.
    int Find(int code, bool own) const;

    const std::string& Name() const { return m_name; }
    const std::string& Kind() const { return m_kind; }
    const std::vector<PLAIN_FIELD>& Fields() const { return m_fields; }

private:
    std::string m_name; // the type or marker in a file
    std::string m_kind; // the number of the kind
    std::vector<PLAIN_FIELD> m_fields;
    std::size_t m_own = 0;
};

// The kind of an entity by its type name, of a table's entry by the table's, of a dimension's part by its
// marker; null when there is none that is kept.
const PlainKind* EntityKind(std::string_view typeName);
const PlainKind* EntryKind(std::string_view typeName);
const PlainKind* PartKind(std::string_view marker);
const PlainKind& TableKind();
const PlainKind& BlockKind();

// Whether a name begins an entity within a block.
bool IsEntityName(std::string_view name);
