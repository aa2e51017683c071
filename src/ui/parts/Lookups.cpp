#include "ui/parts/Lookups.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>

namespace pirol {

/// Owned by all threads, so that any may end first.
struct Lookups::Shared {
    std::mutex mutex{};
    std::condition_variable ended{};
    QObject* receiver = nullptr;
    int running = 0;
};

Lookups::Lookups(QObject* parent) : QObject(parent), shared_(std::make_shared<Shared>()) {
    shared_->receiver = this;
}

/// Who only needs a moment shall not run on into the program's end; a disk that does not answer is not waited for.
Lookups::~Lookups() {
    constexpr std::chrono::milliseconds patience(300);
    std::unique_lock lock(shared_->mutex);
    shared_->receiver = nullptr;
    shared_->ended.wait_for(lock, patience, [this] { return shared_->running == 0; });
}

void Lookups::Begin(std::function<Answer()> look) {
    const auto work = [shared = shared_, look = std::move(look)] {
        Answer answer = look();
        const std::lock_guard lock(shared->mutex);
        if (shared->receiver != nullptr)
            QMetaObject::invokeMethod(shared->receiver, std::move(answer), Qt::QueuedConnection);
        --shared->running;
        shared->ended.notify_all();
    };
    const std::lock_guard lock(shared_->mutex);
    try {
        std::thread(work).detach();
        ++shared_->running;
    } catch (const std::system_error&) {
        return; // there is no thread to be had, and no picture either
    }
}

} // namespace pirol
