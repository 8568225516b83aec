#pragma once

#include "TemporaryFolder.h"

#include <QList>

#include <plist/plist.h>
#include <utility>

namespace zelmo {

using BundleEntries = QList<std::pair<QByteArray, QByteArray>>;

inline QByteArray xmlInformation(const BundleEntries& strings) {
    QByteArray text("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n<dict>\n");
    for (const auto& [key, value] : strings)
        text += "<key>" + key + "</key><string>" + value + "</string>\n";
    return text + "</dict>\n</plist>\n";
}

inline QByteArray binaryInformation(const BundleEntries& strings) {
    plist_t root = plist_new_dict();
    for (const auto& [key, value] : strings)
        plist_dict_set_item(root, key.constData(), plist_new_string(value.constData()));
    char* bytes = nullptr;
    std::uint32_t length = 0;
    plist_to_bin(root, &bytes, &length);
    QByteArray result(bytes, static_cast<qsizetype>(length));
    plist_to_bin_free(bytes);
    plist_free(root);
    return result;
}

// A bundle with an information property list.
inline QByteArray makeBundle(const TemporaryFolder& folder, const QByteArray& name, const BundleEntries& strings = {}) {
    folder.writeFile(name + "/Contents/Info.plist", xmlInformation(strings));
    return folder.path(name);
}

} // namespace zelmo
