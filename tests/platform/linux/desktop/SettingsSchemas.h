#pragma once

#include "TemporaryFolder.h"

#include <QProcess>

#include <gio/gio.h>

namespace zelmo::test {

// A folder with the description of some settings, as programs install it.
class SettingsSchemas {
public:
    // `key` is what the description of the desktop's look says, as XML.
    explicit SettingsSchemas(const QByteArray& key, const QByteArray& path = " path='/org/gnome/desktop/interface/'") {
        m_folder.writeFile("test.gschema.xml", "<schemalist><schema id='org.gnome.desktop.interface'" + path + ">" +
                                                   key + "</schema></schemalist>");
        QProcess compiler;
        compiler.start(QStringLiteral("glib-compile-schemas"), {QString::fromUtf8(m_folder.path())});
        if (!compiler.waitForFinished() || compiler.exitCode() != 0)
            qFatal("the settings' description can't be compiled");
        m_source = g_settings_schema_source_new_from_directory(m_folder.path().constData(), nullptr, TRUE, nullptr);
    }
    ~SettingsSchemas() { g_settings_schema_source_unref(m_source); }
    SettingsSchemas(const SettingsSchemas&) = delete;
    SettingsSchemas& operator=(const SettingsSchemas&) = delete;

    // As it is installed, with so much as a default.
    static QByteArray animationSwitch(const char* byDefault) {
        return QByteArray("<key name='enable-animations' type='b'><default>") + byDefault + "</default></key>";
    }

    GSettingsSchemaSource* source() const { return m_source; }
    const QByteArray& folder() const { return m_folder.path(); }

    enum class Choice { none, animated, still };
    // What the user has chosen from now on. The settings must be kept in memory.
    void choose(Choice choice) const {
        GSettingsSchema* schema = g_settings_schema_source_lookup(m_source, "org.gnome.desktop.interface", FALSE);
        GSettings* settings = g_settings_new_full(schema, nullptr, nullptr);
        if (choice == Choice::none)
            g_settings_reset(settings, "enable-animations");
        else
            g_settings_set_boolean(settings, "enable-animations", choice == Choice::animated);
        g_object_unref(settings);
        g_settings_schema_unref(schema);
    }

private:
    TemporaryFolder m_folder;
    GSettingsSchemaSource* m_source = nullptr;
};

} // namespace zelmo::test
