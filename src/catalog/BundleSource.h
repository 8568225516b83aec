#pragma once

#include "catalog/ApplicationSource.h"

namespace zelmo {

class BundleReader;

// Finds `.app` bundles below a list of roots, at any depth but never inside another bundle.
// Stateless after construction, so any thread may list.
class BundleSource : public ApplicationSource {
public:
    BundleSource(QList<FileUrl> roots, const BundleReader& reader);

    // "/Applications", "/System/Applications" and "Applications" in the home folder, in this order.
    static QList<FileUrl> standardRoots(const FileUrl& home);

    ApplicationListing list() const override;

private:
    FoundApplication describe(const FileUrl& bundle) const;

    QList<FileUrl> m_roots;
    const BundleReader& m_reader;
};

} // namespace zelmo
