// The file's elements as bytes, in one pass.
#pragma once

#include "base/Numbers.h"
#include "svghost/SvgHost.h"
#include "svghost/XmlText.h"

#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>

namespace svghost {

// Writes elements in order as UTF-8, one a line, and passes them on in pieces of some tens of kilobytes. It
// needs room for one such piece, however large the file is. Names are literals or texts that XML allows as
// names; values and texts are UTF-8 of characters that XML allows. Throws std::bad_alloc when it is made and
// memory is short, and nothing later.
class XmlStream {
public:
    XmlStream(SvgHostWriteFunction function, void* user)
        : m_function(function), m_user(user), m_piece(std::make_unique_for_overwrite<char[]>(kPiece)),
          m_at(m_piece.get())
    {
    }

    // The first thing in a file: its version and encoding.
    void Declare() { Put("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"); }

    // A new element in the innermost open element; its attributes follow.
    template <std::size_t size>
    void Begin(const char (&name)[size])
    {
        EndTag();
        m_element = {name, size - 1};
        m_inTag = true;
        Put("<");
        Put(name);
    }

    // Opens the element begun last: elements come into it until Close, which is given the same name.
    void Open()
    {
        m_inTag = false;
        Put(">\n");
    }
    void Close(std::string_view name);

    // Ends the element begun last with a text in it, escaped.
    void SetText(std::string_view text);

    // Opens the element begun last for a text, escaped: more of it, and elements that end with SetRun, come
    // into it until Close.
    void OpenText(std::string_view text);
    void AddText(std::string_view text);
    // Ends the element begun last, which is within a text, with a run of its text, escaped.
    void SetRun(std::string_view text);

    // An attribute of the element begun last, escaped.
    void Set(std::string_view name, std::string_view value);

    // An attribute of texts that need no escapes, and of numbers.
    template <class Name, class... Parts>
    void SetPlain(const Name& name, const Parts&... parts)
    {
        BeginValue(name);
        PutAll(parts...);
        EndValue();
    }

    // The same in steps: between the two, Put writes what the value is made of.
    template <class Name>
    void BeginValue(const Name& name)
    {
        Put(" ");
        Put(name);
        Put("=\"");
    }
    void EndValue() { Put("\""); }

    template <std::size_t size>
    void Put(const char (&literal)[size])
    {
        static_assert(size <= kPiece);
        std::memcpy(Room(size - 1), literal, size - 1);
        m_at += size - 1;
    }
    void Put(std::string_view text)
    {
        if (text.size() > kPiece)
            return PutLong(text);
        std::memcpy(Room(text.size()), text.data(), text.size());
        m_at += text.size();
    }
    // Adding 0 makes a negative zero positive.
    void Put(float number) { m_at = FormatShortest(number + 0.0F, Room(kLongestShortest)); }
    void Put(double number) { m_at = FormatShortest(number + 0.0, Room(kLongestShortest)); }

    template <class... Parts>
    void PutAll(const Parts&... parts)
    {
        (Put(parts), ...);
    }

    // How many bytes were written so far.
    std::size_t Size() const { return m_handedOn + static_cast<std::size_t>(m_at - m_piece.get()); }

    // Call it once, when everything is closed. False when the write function returned false; it was not
    // called again then.
    bool Finish();

private:
    static constexpr std::size_t kPiece = std::size_t{1} << 16;

    // Where that many bytes can be written, at most kPiece.
    char* Room(std::size_t size)
    {
        if (size > static_cast<std::size_t>(m_piece.get() + kPiece - m_at)) [[unlikely]]
            HandOn();
        return m_at;
    }
    void EndTag()
    {
        if (m_inTag)
            Put(" />\n");
        m_inTag = false;
    }
    void PutLong(std::string_view text);
    void PutEscaped(std::string_view text, XmlPlace place);
    void HandOn();

    SvgHostWriteFunction m_function;
    void* m_user;
    std::unique_ptr<char[]> m_piece;
    char* m_at;
    std::size_t m_handedOn = 0;
    std::string_view m_element; // the one begun last
    bool m_inTag = false;       // whether that one's start tag goes on
    bool m_isGood = true;
};

} // namespace svghost
