#pragma once

#include "ui/canvas/PictureFile.h"

#include <QObject>
#include <QPixmap>

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <unordered_map>

namespace pirol {

/// The pictures that the canvas shows, looked up and decoded beside the window's thread, each for one scale at a time.
/// A disk that does not answer holds up neither painting nor the end of the program. Holds at most 128 MB of pictures;
/// those that have not been painted for some seconds make room for others, and what finds none is not shown.
class PictureLoader : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PictureLoader)

  public:
    explicit PictureLoader(QObject* parent);
    ~PictureLoader() override;

    /// The image file's picture as far as it is known, for painting at that scale: a null one until it is read, and
    /// where it cannot be shown. At most once a second it is looked whether the file is another one now. Returns at
    /// once.
    QPixmap Picture(const std::string& path, double scale);

    /// The same as a source for painting, as long as the loader lives.
    PictureSource Source();
    /// The size that the picture has in its file, as far as it is known. Looks for nothing.
    QSize KnownSize(const std::string& path) const;

  signals:
    /// A picture is another one than before, so what shows it is to be painted anew.
    void Loaded();

  private:
    using Clock = std::chrono::steady_clock;
    /// What tells one content of a file from another, and for which scale it was decoded.
    struct Stamp {
        qint64 size = -1; ///< -1 without such a file
        qint64 modified = 0;
        double scale = 1;
        bool operator==(const Stamp&) const = default;
    };
    struct Entry {
        QPixmap picture;
        std::optional<Stamp> stamp; ///< none before it was read
        bool isAsked = false;
        Clock::time_point asked;
        Clock::time_point painted;
    };
    struct Request;
    struct Reading;
    struct Work;

    void Ask(const std::string& path, double scale, Entry& entry);
    static void Read(const std::shared_ptr<Work>& work);
    static Reading Answer(const Request& request);
    void Take(const Reading& reading);
    bool MakeRoom(qint64 bytes);

    std::unordered_map<std::string, Entry> entries_;
    qint64 bytes_ = 0; ///< of all pictures
    std::shared_ptr<Work> work_;
    std::thread thread_;
};

} // namespace pirol
