#pragma once

#include <QStringDecoder>

namespace zelmo {

// Unlike QString::fromUtf8 it keeps a mark of byte order, which is a character like any other inside a text.
inline QStringDecoder utf8Decoder() {
    return QStringDecoder(QStringDecoder::Utf8,
                          QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
}

} // namespace zelmo
