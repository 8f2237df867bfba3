#include "svghost/XmlOutput.h"

#include <algorithm>

namespace svghost {
namespace {

constexpr std::size_t kBatchElements = 256;
constexpr std::size_t kPiece = std::size_t(1) << 16;

// What is not passed on while a batch is saved: more than the longest end tag.
constexpr std::size_t kTail = 32;

} // namespace

XmlOutput::XmlOutput(SvgHostWriteFunction function, void* user) : m_function(function), m_user(user)
{
    m_out.reserve(2 * kPiece);
}

void XmlOutput::addDeclaration()
{
    const pugi::xml_node declaration = m_batch.append_child(pugi::node_declaration);
    addAttribute(declaration, "version", "1.0");
    addAttribute(declaration, "encoding", "UTF-8");
}

pugi::xml_node XmlOutput::addElement(const char* name)
{
    if (m_batchElements >= kBatchElements || m_batchBytes >= kPiece)
        saveBatch();
    ++m_batchElements;
    return m_good ? addChild(m_batch, name) : pugi::xml_node();
}

// pugixml says nothing when memory is short for a name alone: the name is missing then.
pugi::xml_node XmlOutput::addChild(pugi::xml_node parent, const char* name)
{
    const pugi::xml_node element = parent.append_child(name);
    require(*element.name() != '\0');
    return element;
}

void XmlOutput::addAttribute(pugi::xml_node element, const char* name, std::string_view value)
{
    pugi::xml_attribute attribute = element.append_attribute(name);
    require(attribute.set_value(value.data(), value.size()) && *attribute.name() != '\0');
    m_batchBytes += value.size();
}

void XmlOutput::addText(pugi::xml_node element, std::string_view text)
{
    require(element.append_child(pugi::node_pcdata).set_value(text.data(), text.size()));
    m_batchBytes += text.size();
}

// pugixml saves whole elements only. One that holds more than a batch is saved with an empty line in it; what
// stands behind that, the end tag, is taken back until the element is closed.
void XmlOutput::open(pugi::xml_node element)
{
    addText(element, "\n");
    saveBatch();
    const std::size_t end = m_good ? m_out.rfind("</") : m_out.size();
    m_endTags.emplace_back(m_out, end);
    m_out.resize(end);
}

void XmlOutput::close()
{
    saveBatch();
    m_out += m_endTags.back();
    m_endTags.pop_back();
}

bool XmlOutput::finish()
{
    saveBatch();
    passOn(0);
    return m_good;
}

// Not indented: the depth would count from the batch, not from the file's root.
void XmlOutput::saveBatch()
{
    if (m_good && m_batch.first_child())
        m_batch.save(*this, "", pugi::format_no_declaration, pugi::encoding_utf8);
    m_batch.reset();
    m_batchElements = m_batchBytes = 0;
}

void XmlOutput::write(const void* bytes, std::size_t size)
{
    const auto* from = static_cast<const char*>(bytes);
    while (size > 0) {
        const std::size_t part = std::min(size, m_out.capacity() - m_out.size());
        m_out.append(from, part);
        from += part;
        size -= part;
        if (m_out.size() >= kPiece)
            passOn(kTail);
    }
}

void XmlOutput::passOn(std::size_t kept)
{
    const std::size_t size = m_out.size() - std::min(kept, m_out.size());
    m_good = m_good && (size == 0 || m_function(m_user, m_out.data(), size));
    m_out.erase(0, size);
}

} // namespace svghost
