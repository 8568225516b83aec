#include "platform/linux/propertylist/PropertyListGuard.h"

#include <string_view>

namespace zelmo {

namespace {

constexpr std::size_t movesPerByte = 256;

// Takes markup apart only where there is one way to read it. A quoted ">" or a tag within a tag,
// which a more careless reader would see differently, is refused.
class XmlScan {
public:
    XmlScan(std::string_view text, const PropertyListLimits& limits) : m_text(text), m_limits(limits) {}

    bool run() {
        // A text cut short by a zero byte would be another text to the parser.
        if (m_text.find('\0') != std::string_view::npos)
            return false;
        for (;;) {
            const std::size_t next = std::min(m_text.find('<', m_position), m_text.size());
            const std::string_view text = m_text.substr(m_position, next - m_position);
            m_textBytes += text.size();
            m_entities += static_cast<std::size_t>(std::count(text.begin(), text.end(), '&'));
            if (next == m_text.size())
                return endText();
            m_position = next;
            if (!markup())
                return false;
        }
    }

private:
    bool markup() {
        if (startsWith("<!--"))
            return skipPast("-->", 4) && countNode();
        if (startsWith("<![CDATA["))
            return skipPast("]]>", 9) && countNode();
        if (!endText())
            return false;
        const std::size_t start = m_position + 1;
        const std::size_t end = unquotedEnd(start);
        if (end == std::string_view::npos)
            return false;
        const std::string_view tag = m_text.substr(start, end - start);
        m_position = end + 1;
        if (tag.starts_with('?'))
            return tag.size() > 1 && tag.ends_with('?');
        // A document type may be named, but not described: descriptions define entities.
        if (tag.starts_with('!'))
            return tag.starts_with("!DOCTYPE") && tag.find('[') == std::string_view::npos;
        return element(tag);
    }

    bool element(std::string_view tag) {
        const bool closes = tag.starts_with('/');
        if (closes)
            tag.remove_prefix(1);
        const std::string_view name = tag.substr(0, tag.find_first_of(" \t\r\n/"));
        const bool isContainer = name == "dict" || name == "array";
        if (closes) {
            if (!isContainer)
                return true;
            if (m_open.empty() || m_open.back() != name)
                return false;
            m_open.pop_back();
            return true;
        }
        if (!countNode())
            return false;
        if (isContainer && !tag.ends_with('/')) {
            if (m_open.size() == m_limits.depth)
                return false;
            m_open.push_back(name);
        }
        return true;
    }

    // The next ">", provided that it is outside quotes and no "<" stands before it.
    std::size_t unquotedEnd(std::size_t start) const {
        char quote = 0;
        for (std::size_t i = start; i < m_text.size(); ++i) {
            const char c = m_text[i];
            if (c == '>')
                return quote ? std::string_view::npos : i;
            if (c == '<')
                return std::string_view::npos;
            if (quote == 0 && (c == '"' || c == '\''))
                quote = c;
            else if (c == quote)
                quote = 0;
        }
        return std::string_view::npos;
    }

    bool startsWith(std::string_view opening) const { return m_text.substr(m_position).starts_with(opening); }

    bool skipPast(std::string_view closing, std::size_t openingLength) {
        const std::size_t end = m_text.find(closing, m_position + openingLength);
        if (end == std::string_view::npos)
            return false;
        m_textBytes += end - m_position;
        m_position = end + closing.size();
        return true;
    }

    // The parser moves the rest of a text for every entity in it.
    bool endText() {
        m_movedBytes += m_textBytes * m_entities;
        m_textBytes = m_entities = 0;
        return m_movedBytes <= movesPerByte * m_limits.bytes;
    }

    bool countNode() { return ++m_nodes <= m_limits.nodes; }

    std::string_view m_text;
    const PropertyListLimits& m_limits;
    std::size_t m_position = 0;
    std::size_t m_nodes = 0;
    std::size_t m_textBytes = 0;
    std::size_t m_entities = 0;
    std::size_t m_movedBytes = 0;
    std::vector<std::string_view> m_open;
};

} // namespace

bool isHarmlessXmlPropertyList(QByteArrayView bytes, const PropertyListLimits& limits) {
    return XmlScan(std::string_view(bytes.data(), static_cast<std::size_t>(bytes.size())), limits).run();
}

} // namespace zelmo
