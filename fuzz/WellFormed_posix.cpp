#include "WellFormed.h"

#include "FuzzInput.h"

#include <libxml/SAX2.h>
#include <libxml/parser.h>

void RequireWellFormed(const std::string& xml)
{
    constexpr int kOptions = XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING | XML_PARSE_HUGE;
    static xmlParserCtxtPtr const context = xmlNewParserCtxt();
    const xmlDocPtr document =
        xmlCtxtReadMemory(context, xml.data(), static_cast<int>(xml.size()), nullptr, nullptr, kOptions);
    if (document == nullptr || context->wellFormed == 0 || context->nsWellFormed == 0) {
        const xmlErrorPtr error = xmlCtxtGetLastError(context);
        FuzzFail(error == nullptr ? "well-formed XML" : error->message, "", xml);
    }
    xmlFreeDoc(document);
}
