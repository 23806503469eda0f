#pragma once

#include <QList>
#include <QMetaType>
#include <QObject>
#include <QString>
#include <QUuid>

namespace sonavo {

/// One audio file of the session. A plain value.
struct Song
{
    Q_GADGET
    Q_PROPERTY(QUuid id MEMBER id CONSTANT)
    Q_PROPERTY(QString path MEMBER path CONSTANT)
    Q_PROPERTY(QString name MEMBER name CONSTANT)
    Q_PROPERTY(double duration MEMBER duration CONSTANT)
    Q_PROPERTY(qint64 size MEMBER size CONSTANT)
    Q_PROPERTY(QString fileType MEMBER fileType CONSTANT)
    Q_PROPERTY(QString artist MEMBER artist CONSTANT)
    Q_PROPERTY(QString title MEMBER title CONSTANT)
    Q_PROPERTY(QString folderName MEMBER folderName CONSTANT)
    Q_PROPERTY(QString formattedDuration READ formattedDuration CONSTANT)

public:
    /// Random; unique to each time that a file is read, so that a file imported twice gives two different
    /// songs.
    QUuid id;
    /// Absolute path of the file.
    QString path;
    /// File name with its extension.
    QString name;
    /// Playing time in seconds; finite, 0.0 if it is unknown.
    double duration = 0.0;
    /// File size in bytes.
    qint64 size = 0;
    /// File extension in upper case, such as "MP3".
    QString fileType;
    QString artist;
    QString title;
    /// Name of the folder that contains the file.
    QString folderName;

    /// Playing time as minutes and seconds, truncated to whole seconds, without hours, in the locale's
    /// digits: "1:01", "62:05".
    /// Ends the program if the duration is not finite or does not fit 64 bits, which is a programming error.
    [[nodiscard]] QString formattedDuration() const;

    /// Compares all fields; texts by canonical equivalence (Unicode Standard Annex #15).
    friend bool operator==(const Song &a, const Song &b);
};

/// Hash of all fields, consistent with operator==.
[[nodiscard]] size_t qHash(const Song &song, size_t seed = 0);

/// Playing time in whole seconds, truncated towards zero. Ends the program if the duration is not finite or
/// does not fit 64 bits, which is a programming error.
[[nodiscard]] qint64 wholeSeconds(double duration);

} // namespace sonavo

Q_DECLARE_METATYPE(sonavo::Song)
