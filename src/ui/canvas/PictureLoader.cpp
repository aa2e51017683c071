#include "ui/canvas/PictureLoader.h"

#include "app/ErrorReport.h"

#include <QDateTime>
#include <QFileInfo>

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <future>
#include <mutex>
#include <system_error>
#include <utility>

namespace pirol {
namespace {

constexpr std::chrono::seconds betweenLooks(1);
constexpr std::chrono::seconds outOfUse(10);

qint64 BytesOf(const QPixmap& picture) {
    return qint64(picture.width()) * picture.height() * 4;
}

} // namespace

struct PictureLoader::Request {
    std::string path;
    double scale;
    std::optional<Stamp> known;
};

struct PictureLoader::Reading {
    std::string path;
    std::optional<Stamp> stamp;
    bool isNew = false; ///< it is not what was known
    QImage picture{};
};

/// Owned by both threads, so that either may end first.
struct PictureLoader::Work {
    std::promise<void> done{};
    std::mutex mutex{};
    std::condition_variable changed{};
    // Under the mutex:
    std::deque<Request> requests{};
    PictureLoader* receiver = nullptr; ///< null when the thread shall end
};

PictureLoader::PictureLoader(QObject* parent) : QObject(parent) {}

PictureLoader::~PictureLoader() {
    if (!thread_.joinable())
        return;
    {
        const std::lock_guard lock(work_->mutex);
        work_->receiver = nullptr;
    }
    work_->changed.notify_all();
    constexpr std::chrono::seconds patience(1);
    if (work_->done.get_future().wait_for(patience) == std::future_status::ready)
        thread_.join();
    else
        thread_.detach(); // it waits for a disk, and the program's end takes it along
}

QPixmap PictureLoader::Picture(const std::string& path, double scale) {
    if (path.empty())
        return {};
    scale = std::min(scale, 1.0); // larger ones are stretched
    Entry& entry = entries_[path];
    entry.painted = Clock::now();
    const bool isForOtherScale = entry.stamp && entry.stamp->scale != scale;
    if (!entry.isAsked && (isForOtherScale || entry.painted - entry.asked >= betweenLooks))
        Ask(path, scale, entry);
    return entry.picture;
}

PictureSource PictureLoader::Source() {
    return [this](const std::string& path, double scale) { return Picture(path, scale); };
}

QSize PictureLoader::KnownSize(const std::string& path) const {
    const auto found = entries_.find(path);
    return found == entries_.end() ? QSize() : found->second.picture.deviceIndependentSize().toSize();
}

/// The first picture starts the thread: most designs have none. Where it cannot be started a later painting tries
/// again.
void PictureLoader::Ask(const std::string& path, double scale, Entry& entry) {
    entry.asked = entry.painted;
    try {
        if (!work_) {
            auto work = std::make_shared<Work>();
            work->receiver = this;
            thread_ = std::thread(Read, work);
            work_ = std::move(work);
        }
    } catch (const std::system_error&) {
        return;
    }
    const std::lock_guard lock(work_->mutex);
    work_->requests.push_back({path, scale, entry.stamp});
    entry.isAsked = true;
    work_->changed.notify_all();
}

void PictureLoader::Read(const std::shared_ptr<Work>& work) {
    std::unique_lock lock(work->mutex);
    while (true) {
        work->changed.wait(lock, [&work] { return work->receiver == nullptr || !work->requests.empty(); });
        if (work->receiver == nullptr)
            break;
        const Request request = std::move(work->requests.front());
        work->requests.pop_front();
        lock.unlock();
        Reading reading = Answer(request);
        lock.lock();
        if (PictureLoader* const receiver = work->receiver)
            QMetaObject::invokeMethod(
                receiver, [receiver, reading = std::move(reading)] { receiver->Take(reading); }, Qt::QueuedConnection);
    }
    work->done.set_value();
}

/// Without memory for it the picture counts as none.
PictureLoader::Reading PictureLoader::Answer(const Request& request) {
    Reading reading{.path = request.path, .stamp = Stamp{.scale = request.scale}};
    ErrorOf([&] {
        const QFileInfo file(QString::fromStdString(request.path));
        if (file.isFile()) {
            reading.stamp->size = file.size();
            reading.stamp->modified = file.lastModified().toMSecsSinceEpoch();
        }
        reading.isNew = reading.stamp != request.known;
        if (reading.isNew)
            reading.picture = DecodedPicture(request.path, request.scale);
    });
    return reading;
}

void PictureLoader::Take(const Reading& reading) {
    const auto found = entries_.find(reading.path);
    if (found == entries_.end())
        return;
    Entry& entry = found->second;
    const bool wasShown = !entry.picture.isNull();
    if (reading.isNew) {
        bytes_ -= BytesOf(std::exchange(entry.picture, {}));
        const QPixmap picture = QPixmap::fromImage(reading.picture);
        const bool hasRoom = MakeRoom(BytesOf(picture));
        entry.stamp = hasRoom ? reading.stamp : std::nullopt;
        entry.picture = hasRoom ? picture : QPixmap();
        bytes_ += BytesOf(entry.picture);
    }
    entry.isAsked = false; // what is asked for is not cleared away by MakeRoom
    if (reading.isNew && (wasShown || !entry.picture.isNull()))
        emit Loaded();
}

/// What is still shown stays, so that painting does not ask for two pictures in turn for ever.
bool PictureLoader::MakeRoom(qint64 bytes) {
    if (bytes_ + bytes <= mostPictureBytes)
        return true;
    const Clock::time_point now = Clock::now();
    std::erase_if(entries_, [&](const auto& pair) {
        const Entry& entry = pair.second;
        const bool goes = !entry.isAsked && now - entry.painted >= outOfUse;
        bytes_ -= goes ? BytesOf(entry.picture) : 0;
        return goes;
    });
    return bytes_ + bytes <= mostPictureBytes;
}

} // namespace pirol
