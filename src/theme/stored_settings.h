#pragma once

class QObject;
class QSettings;

namespace sonavo {

/// The application's settings, where and as QSettings keeps them by default. Uses the application's and the
/// organisation's name.
/// @param parent owns them
/// @return null where reading them could take forever: one of their files is a pipe, a device or the like, or
///     far larger than any settings. A file that merely cannot be read counts as empty.
[[nodiscard]] QSettings *openStoredSettings(QObject *parent);

} // namespace sonavo
