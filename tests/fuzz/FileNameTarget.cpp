#include "catalog/FileUrl.h"
#include "fuzz/FuzzTarget.h"

using namespace zelmo;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes = '/' + fuzz::copyOf(data, size);
    const FileUrl url = FileUrl::fromNativePath(bytes);
    fuzz::require(url.nativePath() == bytes, "a name keeps its bytes");
    fuzz::require(FileUrl::fromPath(QString::fromUtf8(url.path().toUtf8())) == url, "a name's text can be stored");
    fuzz::require(url.pathExtension().isEmpty() ||
                      url.lastPathComponent() == QString(url.stem() + u'.' + url.pathExtension()),
                  "a name consists of its stem and its extension");
    return 0;
}
