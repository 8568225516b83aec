#include "platform/linux/desktop/GnomeAnimations.h"

#include <gio/gio.h>

#include <memory>

namespace zelmo {

namespace {

constexpr const char* schemaName = "org.gnome.desktop.interface";
constexpr const char* keyName = "enable-animations";

template <auto unref>
struct Unref {
    template <typename Object>
    void operator()(Object* object) const {
        unref(object);
    }
};

using Schema = std::unique_ptr<GSettingsSchema, Unref<g_settings_schema_unref>>;
using Key = std::unique_ptr<GSettingsSchemaKey, Unref<g_settings_schema_key_unref>>;
using Settings = std::unique_ptr<GSettings, Unref<g_object_unref>>;
using Value = std::unique_ptr<GVariant, Unref<g_variant_unref>>;

// To ask for a key that isn't there, or for a value of another type, ends the program.
bool hasSwitch(GSettingsSchema* schema) {
    if (!g_settings_schema_has_key(schema, keyName))
        return false;
    const Key key(g_settings_schema_get_key(schema, keyName));
    return g_variant_type_equal(g_settings_schema_key_get_value_type(key.get()), G_VARIANT_TYPE_BOOLEAN) != FALSE;
}

} // namespace

std::optional<bool> gnomeReducesMotion(_GSettingsSchemaSource* schemas) {
    const Schema schema(schemas ? g_settings_schema_source_lookup(schemas, schemaName, TRUE) : nullptr);
    // A description without a path describes many settings at once.
    if (!schema || !g_settings_schema_get_path(schema.get()) || !hasSwitch(schema.get()))
        return std::nullopt;
    const Settings settings(g_settings_new_full(schema.get(), nullptr, nullptr));
    if (!g_settings_get_boolean(settings.get(), keyName))
        return true;
    const Value chosen(g_settings_get_user_value(settings.get(), keyName));
    return chosen ? std::optional(false) : std::nullopt;
}

} // namespace zelmo
