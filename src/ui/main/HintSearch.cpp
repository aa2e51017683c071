#include "ui/main/HintSearch.h"

#include "app/ErrorReport.h"

#include <future>
#include <mutex>
#include <system_error>
#include <utility>

namespace pirol {

/// Owned by both threads, so that either may end first.
struct HintSearch::Task {
    ProjectModel model;
    std::string projectFile;
    CodeOptions options;
    std::stop_source stop{};

    std::vector<Hint> hints{};
    std::optional<RuntimeError> error{};

    std::promise<void> done{};
    std::mutex mutex{};
    HintSearch* receiver = nullptr; ///< under the mutex
};

HintSearch::HintSearch(QObject* parent) : QObject(parent) {}

HintSearch::~HintSearch() {
    if (!thread_.joinable())
        return;
    {
        const std::lock_guard lock(running_->mutex);
        running_->receiver = nullptr;
    }
    running_->stop.request_stop();
    constexpr std::chrono::seconds patience(1);
    if (running_->done.get_future().wait_for(patience) == std::future_status::ready)
        thread_.join();
    else
        thread_.detach(); // it waits for a disk, and the program's end takes it along
}

void HintSearch::Start(const ProjectModel& model, const std::string& projectFile, CodeOptions options) {
    auto task = std::make_shared<Task>();
    task->model = model;
    task->projectFile = projectFile;
    task->options = options;
    task->receiver = this;
    Stop();
    if (running_)
        next_ = std::move(task);
    else
        Run(task);
}

void HintSearch::Stop() {
    next_.reset();
    if (running_)
        running_->stop.request_stop();
}

void HintSearch::Run(const std::shared_ptr<Task>& task) {
    try {
        thread_ = std::thread(Find, task);
        running_ = task;
    } catch (const std::system_error&) {
        emit Failed(RuntimeError(RuntimeError::OutOfMemory));
    }
}

void HintSearch::Find(const std::shared_ptr<Task>& task) {
    task->error = ErrorOf(
        [&task] { task->hints = FindHints(task->model, task->projectFile, task->options, task->stop.get_token()); });
    // The window's thread shall not have to take the copy apart.
    task->model = {};
    const std::lock_guard lock(task->mutex);
    if (HintSearch* const receiver = task->receiver)
        QMetaObject::invokeMethod(
            receiver, [receiver, task] { receiver->End(task); }, Qt::QueuedConnection);
    task->done.set_value();
}

void HintSearch::End(const std::shared_ptr<Task>& task) {
    thread_.join();
    running_.reset();
    if (next_)
        return Run(std::exchange(next_, nullptr));
    if (task->stop.stop_requested())
        return;
    if (task->error)
        emit Failed(*task->error);
    else
        emit Found(task->hints);
}

} // namespace pirol
