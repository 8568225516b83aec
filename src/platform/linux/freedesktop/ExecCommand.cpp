#include "platform/linux/freedesktop/ExecCommand.h"

#include <string_view>

namespace zelmo::ExecCommand {

namespace {

// Goes over a command line character by character and keeps the first words. The rest is read too,
// since a quote that stays open there makes the whole line unusable.
class WordReader {
public:
    WordReader(std::string_view line, qsizetype limit) : m_line(line), m_limit(limit) {}

    std::optional<QList<QByteArray>> words() {
        while (m_position < m_line.size()) {
            if (!step())
                return std::nullopt;
        }
        if (m_words.isEmpty())
            return std::nullopt;
        return m_words;
    }

private:
    // Takes the next unquoted character or a whole quoted part. False when it is left open.
    bool step() {
        const char c = m_line[m_position++];
        switch (c) {
        case ' ':
        case '\t':
        case '\n':
            m_isInWord = false;
            return true;
        case '\\':
            return takeEscaped();
        case '\'':
            return takeSingleQuoted();
        case '"':
            return takeDoubleQuoted();
        case '#':
            if (startsComment())
                return skipComment();
            break;
        default:
            break;
        }
        append(c);
        return true;
    }

    bool takeEscaped() {
        if (m_position == m_line.size())
            return false;
        const char c = m_line[m_position++];
        // An escaped end of line joins the two lines.
        if (c != '\n')
            append(c);
        return true;
    }

    bool takeSingleQuoted() {
        const std::size_t end = m_line.find('\'', m_position);
        if (end == std::string_view::npos)
            return false;
        append(m_line.substr(m_position, end - m_position));
        m_position = end + 1;
        return true;
    }

    bool takeDoubleQuoted() {
        append(std::string_view());
        while (m_position < m_line.size()) {
            char c = m_line[m_position++];
            if (c == '"')
                return true;
            if (c == '\\' && m_position < m_line.size() &&
                std::string_view("\"\\`$\n").find(m_line[m_position]) != std::string_view::npos)
                c = m_line[m_position++];
            append(c);
        }
        return false;
    }

    bool startsComment() const {
        if (m_position == 1)
            return true;
        const char before = m_line[m_position - 2];
        return before == ' ' || before == '\n';
    }

    bool skipComment() {
        // GLib takes a comment sign at the very end for an open quote.
        if (m_position == m_line.size())
            return false;
        const std::size_t end = m_line.find('\n', m_position);
        m_position = end == std::string_view::npos ? m_line.size() : end + 1;
        return true;
    }

    void append(std::string_view text) {
        if (!m_isInWord) {
            m_isInWord = true;
            ++m_count;
            if (m_count <= m_limit)
                m_words.emplaceBack();
        }
        if (m_count <= m_limit)
            m_words.last().append(text.data(), static_cast<qsizetype>(text.size()));
    }
    void append(char c) { append(std::string_view(&c, 1)); }

    std::string_view m_line;
    std::size_t m_position = 0;
    qsizetype m_limit;
    QList<QByteArray> m_words;
    qsizetype m_count = 0;
    bool m_isInWord = false;
};

} // namespace

std::optional<QList<QByteArray>> words(const QByteArray& commandLine, qsizetype limit) {
    return WordReader(std::string_view(commandLine.constData(), static_cast<std::size_t>(commandLine.size())), limit)
        .words();
}

std::optional<QByteArray> program(const QByteArray& commandLine) {
    const auto first = words(commandLine, 1);
    return first ? std::optional(first->first()) : std::nullopt;
}

} // namespace zelmo::ExecCommand
