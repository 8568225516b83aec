// Prints what GIO makes of the environment, every field ended by a NUL byte.
//   gio-oracle applications   ID, path, name and icon of each application that should be shown
//   gio-oracle languages      the names of locales in order of preference

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

#include <cstdio>
#include <string_view>

namespace {

void print(const char* field) {
    std::fputs(field ? field : "", stdout);
    std::fputc('\0', stdout);
}

void printIcon(GIcon* icon) {
    if (icon && G_IS_THEMED_ICON(icon)) {
        print(g_themed_icon_get_names(G_THEMED_ICON(icon))[0]);
    } else if (icon && G_IS_FILE_ICON(icon)) {
        char* path = g_file_get_path(g_file_icon_get_file(G_FILE_ICON(icon)));
        print(path);
        g_free(path);
    } else {
        print("");
    }
}

void printApplications() {
    GList* all = g_app_info_get_all();
    for (const GList* item = all; item; item = item->next) {
        GAppInfo* application = G_APP_INFO(item->data);
        if (!g_app_info_should_show(application))
            continue;
        print(g_app_info_get_id(application));
        print(g_desktop_app_info_get_filename(G_DESKTOP_APP_INFO(application)));
        print(g_app_info_get_name(application));
        printIcon(g_app_info_get_icon(application));
        const char* categories = g_desktop_app_info_get_categories(G_DESKTOP_APP_INFO(application));
        print(categories ? categories : "");
    }
    g_list_free_full(all, g_object_unref);
}

void printLanguages() {
    for (const char* const* name = g_get_language_names(); *name; ++name)
        print(*name);
}

} // namespace

int main(int argumentCount, char** arguments) {
    const std::string_view question = argumentCount > 1 ? arguments[1] : "";
    if (question == "applications")
        printApplications();
    else if (question == "languages")
        printLanguages();
    else
        return 2;
    return 0;
}
