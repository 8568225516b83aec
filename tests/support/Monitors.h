#pragma once

#include "support/XDisplay.h"

#include <string_view>

namespace zelmo::test {

// How the X server's screen is divided: one monitor, or two of half its width, of which one is the primary.
enum class Monitors { one, leftPrimary, rightPrimary };
enum class Monitor { left, right };

// Makes two monitors of one.
void divideScreen(const XDisplay& display, Monitor primary);
// Unplugs one of two. When it is the primary, the server can't but unplug both and plug the other one in again.
void removeMonitor(const XDisplay& display, Monitor monitor);
// Plugs in a second one.
void addSecondMonitor(const XDisplay& display, Monitor monitor, const QRect& area);
// Unplugs the one that is not the primary and plugs it in again elsewhere, on the desktop or not.
void moveSecondMonitor(const XDisplay& display, Monitor monitor, const QRect& area);
// Gives the one that is not the primary another name.
void renameSecondMonitor(const XDisplay& display, Monitor monitor, std::string_view name);

} // namespace zelmo::test
