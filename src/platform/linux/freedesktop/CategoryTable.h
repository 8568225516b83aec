#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

namespace zelmo::CategoryTable {

// The category type, as AppCategoryMapper takes it, of an entry that lists `categories`; nothing when
// the table knows none of them. Pure.
std::optional<QString> categoryType(const QList<QByteArray>& categories);

} // namespace zelmo::CategoryTable
