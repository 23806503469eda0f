#pragma once

#include <QList>
#include <QMetaType>
#include <QObject>
#include <QString>
#include <QUuid>

namespace sonavo {

/// One audio file of the session: a plain value, copied freely.
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
    /// Identity of this record. Every reading of a file makes a fresh one, so one file imported twice gives
    /// two different songs.
    QUuid id;
    /// Absolute path of the file.
    QString path;
    /// File name with its extension.
    QString name;
    /// Playing time in seconds; always finite, 0.0 where the file does not tell.
    double duration = 0.0;
    /// File size in bytes.
    qint64 size = 0;
    /// File extension in upper case, such as "MP3".
    QString fileType;
    QString artist;
    QString title;
    /// Name of the folder that holds the file.
    QString folderName;

    /// Playing time as minutes and seconds, truncated to whole seconds: "1:01", "62:05" (there is no hour).
    /// A duration that is not finite or does not fit 64 bits is a programming error and ends the program.
    [[nodiscard]] QString formattedDuration() const;

    /// Field by field; texts are equal when they are canonically equivalent (Unicode Standard Annex #15).
    friend bool operator==(const Song &a, const Song &b);
};

/// Hash over all fields, in agreement with equality.
[[nodiscard]] size_t qHash(const Song &song, size_t seed = 0);

/// Whole seconds of a playing time, truncated towards zero. A duration that is not finite or does not fit
/// 64 bits is a programming error and ends the program.
[[nodiscard]] qint64 wholeSeconds(double duration);

} // namespace sonavo

Q_DECLARE_METATYPE(sonavo::Song)
