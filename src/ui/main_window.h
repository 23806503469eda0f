#pragma once

class QQmlApplicationEngine;
class QQuickWindow;

namespace sonavo {

class DuplicateViewModel;
class ThemeManager;

/// Loads the main window and shows it in the current theme. Needs a QApplication. Main thread only.
/// @param engine a new one; owns the window and must be gone before the other two
/// @return null when the window cannot be loaded
[[nodiscard]] QQuickWindow *loadMainWindow(QQmlApplicationEngine &engine, DuplicateViewModel &viewModel,
                                           ThemeManager &themeManager);

} // namespace sonavo
