// The elements of the file as pugixml nodes, saved a batch at a time.
#ifndef SVGHOST_XMLOUTPUT_H
#define SVGHOST_XMLOUTPUT_H

#include "svghost/SvgHost.h"

#include <pugixml.hpp>

#include <string>
#include <string_view>
#include <vector>

namespace svghost {

// Takes the file's elements in order and writes them as UTF-8, in pieces of some tens of kilobytes. All that
// stands in the file, pugixml makes: names, attributes, escapes, start and end tags.
//
// A styled line takes 48 bytes in the document's own tree and nearly 600 as pugixml nodes: for a drawing of
// 300,000 of them that is 14 MB against 170. So the document keeps its tree, only a batch of elements at a
// time is made into nodes, and memory stays flat however large the drawing is.
// When memory is short, or the write function wants no more, element() gives null nodes from then on.
class XmlOutput : private pugi::xml_writer {
public:
    XmlOutput(SvgHostWriteFunction function, void* user);

    // The first thing in a file: its version and encoding.
    void addDeclaration();
    // A new element without attributes, in the innermost open element. Good until the next call.
    pugi::xml_node addElement(const char* name);
    // The same within an element that is not open.
    pugi::xml_node addChild(pugi::xml_node parent, const char* name);
    // Value and text are UTF-8 of characters that XML allows.
    void addAttribute(pugi::xml_node element, const char* name, std::string_view value);
    void addText(pugi::xml_node element, std::string_view text);

    // Opens the element that was added last: elements come into it until close().
    void open(pugi::xml_node element);
    void close();

    // To be called once, when all is closed. False when something is missing in the file.
    bool finish();

private:
    void write(const void* bytes, std::size_t size) override;
    void saveBatch();
    void passOn(std::size_t kept);
    void require(bool done) { m_good = m_good && done; }

    SvgHostWriteFunction m_function;
    void* m_user;
    pugi::xml_document m_batch;
    std::size_t m_batchElements = 0;
    std::size_t m_batchBytes = 0;
    std::string m_out;
    std::vector<std::string> m_endTags; // of the open elements
    bool m_good = true;
};

} // namespace svghost

#endif
