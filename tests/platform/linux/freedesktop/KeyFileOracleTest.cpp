#include "platform/linux/freedesktop/DesktopEntryFile.h"
#include "platform/linux/freedesktop/ExecCommand.h"

#include <QTest>

#include <glib.h>

#include <random>

using namespace zelmo;
using Key = DesktopEntryKey;

namespace {

constexpr const char* group = "Desktop Entry";

const QByteArray sample = "# A comment\n"
                          "[Desktop Entry]\n"
                          "Type=Application\n"
                          "Encoding=UTF-8\n"
                          "Name=Plain \\s\\t name\n"
                          "Name[de]=\xc3\x9c"
                          "bersicht\n"
                          "Name[de_AT]=\xc3\x96sterreich\r\n"
                          "Name[sr@latin]=Pregled\n"
                          "Icon = picture.png \n"
                          "Icon[de]=bild\n"
                          "Exec=env A=\"b c\" prog\\\\x %U\n"
                          "TryExec=/usr/bin/prog\n"
                          "Hidden=false\n"
                          "NoDisplay=1 \n"
                          "OnlyShowIn=GNOME;KDE\\;x;;\n"
                          "NotShowIn=\n"
                          "Categories=Office;Viewer;\n"
                          "DBusActivatable=true\n"
                          "\n"
                          "[Desktop Action new]\n"
                          "Name=New\n"
                          "[Desktop Entry]\n"
                          "Name=Later\n";

// Bytes and pieces that mean something to a reader of this syntax.
const QList<QByteArray> fragments{"\n",
                                  "\r",
                                  "\r\n",
                                  "=",
                                  "[",
                                  "]",
                                  ";",
                                  "\\",
                                  "\\s",
                                  "\\;",
                                  "#",
                                  " ",
                                  "\t",
                                  "\v",
                                  "\f",
                                  "\x01",
                                  "\x7f",
                                  QByteArray("\0", 1),
                                  "\xff",
                                  "\xc3",
                                  "\xe2\x82\xac",
                                  "\xed\xa0\x80",
                                  "\xef\xbb\xbf",
                                  "\xef\xbf\xbf",
                                  "\xf4\x90\x80\x80",
                                  "[Desktop Entry]\n",
                                  "\n[x]\n",
                                  "[de]",
                                  "[\xc3\xa9]",
                                  "[C]",
                                  "Name[de]=\n",
                                  "\nName=",
                                  "\nEncoding=utf-8\n",
                                  "true",
                                  "'",
                                  "\""};

class Mutator {
public:
    explicit Mutator(unsigned seed) : m_random(seed) {}

    QByteArray mutate(QByteArray bytes) {
        for (std::size_t count = 1 + number(4); count > 0; --count) {
            const auto position = static_cast<qsizetype>(number(static_cast<std::size_t>(bytes.size()) + 1));
            const auto length = static_cast<qsizetype>(number(12));
            switch (number(5)) {
            case 0:
                bytes.remove(position, length);
                break;
            case 1:
                bytes.insert(position, fragment());
                break;
            case 2:
                bytes.replace(position, std::min<qsizetype>(1, bytes.size() - position), fragment());
                break;
            case 3:
                bytes.insert(position, bytes.mid(static_cast<qsizetype>(number(300)), length * 4));
                break;
            default:
                bytes.insert(position, static_cast<char>(number(256)));
                break;
            }
        }
        return bytes;
    }

private:
    std::size_t number(std::size_t limit) { return m_random() % limit; }
    const QByteArray& fragment() {
        return fragments[static_cast<qsizetype>(number(static_cast<std::size_t>(fragments.size())))];
    }

    std::mt19937 m_random;
};

struct Freer {
    void operator()(GKeyFile* file) const { g_key_file_unref(file); }
    void operator()(char* text) const { g_free(text); }
    void operator()(char** texts) const { g_strfreev(texts); }
};
template <typename T>
using Owned = std::unique_ptr<T, Freer>;

// As GIO opens an entry.
Owned<GKeyFile> load(const QByteArray& bytes) {
    Owned<GKeyFile> file(g_key_file_new());
    if (!g_key_file_load_from_data(file.get(), bytes.constData(), static_cast<gsize>(bytes.size()), G_KEY_FILE_NONE,
                                   nullptr))
        return nullptr;
    const Owned<char> start(g_key_file_get_start_group(file.get()));
    return start && QByteArrayView(start.get()) == QByteArrayView(group) ? std::move(file) : nullptr;
}

std::optional<QByteArray> copy(char* text) {
    const Owned<char> owner(text);
    return text ? std::optional(QByteArray(text)) : std::nullopt;
}

std::optional<QList<QByteArray>> copy(char** texts) {
    const Owned<char*> owner(texts);
    if (!texts)
        return std::nullopt;
    QList<QByteArray> list;
    for (; *texts; ++texts)
        list.append(QByteArray(*texts));
    return list;
}

std::optional<QByteArray> toUtf8(const std::optional<QString>& text) {
    return text ? std::optional(text->toUtf8()) : std::nullopt;
}

std::optional<QByteArray> firstArgument(const QByteArray& command) {
    int count = 0;
    char** arguments = nullptr;
    if (!g_shell_parse_argv(command.constData(), &count, &arguments, nullptr))
        return std::nullopt;
    return copy(arguments)->first();
}

const std::array<std::pair<Key, const char*>, 11> keys{{{Key::type, "Type"},
                                                        {Key::name, "Name"},
                                                        {Key::icon, "Icon"},
                                                        {Key::exec, "Exec"},
                                                        {Key::tryExec, "TryExec"},
                                                        {Key::hidden, "Hidden"},
                                                        {Key::noDisplay, "NoDisplay"},
                                                        {Key::onlyShowIn, "OnlyShowIn"},
                                                        {Key::notShowIn, "NotShowIn"},
                                                        {Key::categories, "Categories"},
                                                        {Key::dBusActivatable, "DBusActivatable"}}};

} // namespace

class KeyFileOracleTest : public QObject {
    Q_OBJECT

    LocaleNames m_locales = LocaleNames(LocaleVariables{});

    void compare(const QByteArray& bytes) {
        const Owned<GKeyFile> expected = load(bytes);
        const auto file = DesktopEntryFile::parse(bytes, m_locales);
        QCOMPARE(file.has_value(), expected != nullptr);
        if (!file)
            return;
        for (const auto& [key, text] : keys) {
            QCOMPARE(file->value(key), copy(g_key_file_get_string(expected.get(), group, text, nullptr)));
            QCOMPARE(file->list(key), copy(g_key_file_get_string_list(expected.get(), group, text, nullptr, nullptr)));
            QCOMPARE(file->flag(key), g_key_file_get_boolean(expected.get(), group, text, nullptr) != 0);
        }
        for (const auto& [key, text] : {keys[1], keys[2]}) {
            QCOMPARE(toUtf8(file->localizedText(key)),
                     copy(g_key_file_get_locale_string(expected.get(), group, text, nullptr, nullptr)));
        }
    }

private Q_SLOTS:
    void initTestCase() {
        // Before GLib looks for the first time.
        qputenv("LANGUAGE", "de_AT:sr@latin");
        m_locales = LocaleNames::fromEnvironment();
        QVERIFY(load(sample));
        compare(sample);
    }

    void mutatedFilesReadAsGLibReadsThem() {
        int acceptedCount = 0;
        constexpr int total = 20'000;
        for (unsigned seed = 0; seed < total; ++seed) {
            const QByteArray bytes = Mutator(seed).mutate(sample);
            compare(bytes);
            if (QTest::currentTestFailed()) {
                qWarning() << "seed" << seed << bytes;
                return;
            }
            acceptedCount += DesktopEntryFile::parse(bytes, m_locales).has_value() ? 1 : 0;
        }
        // Both verdicts must have come up often, or the comparison says little.
        QVERIFY(acceptedCount > total / 10);
        QVERIFY(acceptedCount < total * 9 / 10);
    }

    void mutatedCommandsReadAsGLibReadsThem() {
        for (unsigned seed = 0; seed < 20'000; ++seed) {
            QByteArray command = Mutator(seed).mutate("\"a b\"\\ c 'd\\e' #f\n g%u\\\"h \\$i");
            command.truncate(command.indexOf('\0') < 0 ? command.size() : command.indexOf('\0'));
            const auto expected = firstArgument(command);
            if (ExecCommand::program(command) != expected)
                qWarning() << "seed" << seed << command;
            QCOMPARE(ExecCommand::program(command), expected);
        }
    }

    void longLinesAndManyLinesEnd() {
        compare("[Desktop Entry]\nName=" + QByteArray(1'000'000, '\\') + "\n");
        compare("[Desktop Entry]\n" + QByteArray(1'000'000, '\n') + "Name=x");
        compare("[Desktop Entry]\nCategories=" + QByteArray(300'000, ';') + "\n");
        compare("[Desktop Entry]\n" + QByteArray("Name[de]=x\n").repeated(50'000));
    }
};

QTEST_APPLESS_MAIN(KeyFileOracleTest)
#include "KeyFileOracleTest.moc"
