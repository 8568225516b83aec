#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

namespace {

// Which folders a folder of src/ may include besides itself: arrows point down only.
const QMap<QString, QStringList>& allowedArrows() {
    static const QMap<QString, QStringList> arrows = [] {
        const auto list = [](const char* text) { return QString::fromLatin1(text).split(u' ', Qt::SkipEmptyParts); };
        return QMap<QString, QStringList>{
            {QStringLiteral("preferences"), {}},
            {QStringLiteral("appearance"), list("preferences")},
            {QStringLiteral("hotkey"), list("preferences")},
            {QStringLiteral("catalog"), list("preferences")},
            {QStringLiteral("iconart"), list("appearance preferences")},
            {QStringLiteral("overlay"), list("catalog preferences")},
            {QStringLiteral("ui"), list("overlay catalog appearance iconart preferences")},
            {QStringLiteral("shell"), list("catalog hotkey preferences")},
            {QStringLiteral("menubar"), list("shell ui catalog iconart preferences")},
            {QStringLiteral("settings"), list("shell ui overlay catalog hotkey appearance iconart preferences")},
            {QStringLiteral("platform"),
             list("preferences appearance catalog hotkey overlay ui shell menubar settings")},
            {QStringLiteral("app"),
             list("menubar settings shell ui platform overlay catalog appearance hotkey iconart preferences")},
        };
    }();
    return arrows;
}

// A backend may include the interfaces that it implements and the records in them, nothing else of these folders.
const QSet<QString>& interfaces() {
    static const QSet<QString> headers = [] {
        QSet<QString> set;
        for (const char* header : {"appearance/FontDesign.h",
                                   "catalog/AppIcon.h",
                                   "catalog/ApplicationLauncher.h",
                                   "catalog/ApplicationSource.h",
                                   "catalog/BundleReader.h",
                                   "catalog/FileUrl.h",
                                   "catalog/FolderWatcher.h",
                                   "catalog/RunningApplication.h",
                                   "catalog/Trash.h",
                                   "catalog/Workspace.h",
                                   "hotkey/HotKeyService.h",
                                   "menubar/PanelDesktop.h",
                                   "menubar/StatusItem.h",
                                   "overlay/KeyboardBuffer.h",
                                   "overlay/MainScreen.h",
                                   "overlay/MotionPreference.h",
                                   "overlay/SystemPresentation.h",
                                   "preferences/PreferenceTable.h",
                                   "preferences/PreferencesStorage.h",
                                   "settings/ColorScheme.h",
                                   "settings/ProgramActivation.h",
                                   "shell/ProgramInstance.h",
                                   "ui/DesktopCapture.h",
                                   "ui/FontFaces.h",
                                   "ui/IconSource.h"})
            set.insert(QString::fromLatin1(header));
        return set;
    }();
    return headers;
}

QString folderOf(const QString& path) {
    return path.section(u'/', 0, 0);
}

const QString& source() {
    static const QString folder = QStringLiteral(ZELMO_SOURCE_FOLDER "/src/");
    return folder;
}

struct Include {
    QString file;   // below src/
    QString target; // as it stands between the quotes
};

QList<Include> includesOfTheProject() {
    static const QRegularExpression pattern(QStringLiteral("^\\s*#\\s*include\\s*\"([^\"]+)\""),
                                            QRegularExpression::MultilineOption);
    QList<Include> includes;
    QDirIterator files(source(), {QStringLiteral("*.h"), QStringLiteral("*.cpp")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (!file.open(QFile::ReadOnly))
            continue;
        auto match = pattern.globalMatch(QString::fromUtf8(file.readAll()));
        while (match.hasNext())
            includes.append({file.fileName().mid(source().size()), match.next().captured(1)});
    }
    return includes;
}

} // namespace

class HouseTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyIncludeIsFoundFromTheSourceFolder() {
        const auto includes = includesOfTheProject();
        QVERIFY(includes.size() > 50);
        for (const auto& [file, target] : includes)
            QVERIFY2(QFile::exists(source() + target), qPrintable(file + u" includes " + target));
    }

    void includesPointDownOnly() {
        for (const auto& [file, target] : includesOfTheProject()) {
            const QString from = folderOf(file);
            const QString to = folderOf(target);
            QVERIFY2(allowedArrows().contains(from), qPrintable(file + u" is in no known folder"));
            QVERIFY2(from == to || allowedArrows()[from].contains(to), qPrintable(file + u" includes " + target));
        }
    }

    void backendsIncludeOnlyTheInterfacesTheyImplement() {
        for (const auto& [file, target] : includesOfTheProject()) {
            if (folderOf(file) == QLatin1StringView("platform") && folderOf(target) != QLatin1StringView("platform"))
                QVERIFY2(interfaces().contains(target), qPrintable(file + u" includes " + target));
        }
    }

    void onlyTheApplicationNamesABackend() {
        for (const auto& [file, target] : includesOfTheProject()) {
            const QString from = folderOf(file);
            if (from != QLatin1StringView("app") && from != QLatin1StringView("platform"))
                QVERIFY2(folderOf(target) != QLatin1StringView("platform"), qPrintable(file + u" includes " + target));
        }
    }
};

QTEST_GUILESS_MAIN(HouseTest)
#include "HouseTest.moc"
