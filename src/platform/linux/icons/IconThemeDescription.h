#pragma once

#include <QByteArray>
#include <QList>

#include <optional>
#include <vector>

namespace zelmo {

enum class IconFolderType { fixed, scalable, threshold };

// One folder of a theme and the sizes that its icons are drawn for.
struct IconThemeFolder {
    QByteArray path; // relative to the theme
    int size = 0;    // in points
    int scale = 1;   // pixels a point
    IconFolderType type = IconFolderType::threshold;
    int minimum = 0;
    int maximum = 0;
    int threshold = 2;

    // Whether the icons are drawn for this very size and scale.
    bool matches(int points, double wantedScale) const;
    // How far the icons are from this size, in pixels.
    double distance(double pixels) const;
    // How many pixels the icons have when they are drawn as near to this size as they allow.
    double drawnPixels(double pixels) const;
};

// What a theme says of itself: its folders, in the order that they are searched, and the themes that
// stand behind it. A plain value.
struct IconThemeDescription {
    QList<QByteArray> parents;
    std::vector<IconThemeFolder> folders;

    // Nothing when there is no theme in these bytes. Folders outside of the theme are left out.
    static std::optional<IconThemeDescription> parse(const QByteArray& bytes);
    // The folder that a conventional name such as "48x48@2" or "scalable" stands for.
    static std::optional<IconThemeFolder> conventionalFolder(const QByteArray& name);
};

} // namespace zelmo
