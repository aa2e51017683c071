#include "ui/parts/RunBeside.h"

#include <QEventLoop>

#include <chrono>
#include <future>
#include <system_error>
#include <thread>

namespace pirol {
namespace {

/// Shorter work is not noticed, and is not worth a round of the event loop.
constexpr std::chrono::milliseconds unnoticed(15);

} // namespace

void RunBeside(const std::function<void()>& work) {
    std::packaged_task<void()> task(work);
    std::future<void> result = task.get_future();
    QEventLoop loop;
    try {
        std::thread worker([&] {
            task();
            QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
        });
        if (result.wait_for(unnoticed) != std::future_status::ready)
            loop.exec(QEventLoop::ExcludeUserInputEvents);
        worker.join();
    } catch (const std::system_error&) {
        task(); // there is no thread to be had
    }
    result.get();
}

} // namespace pirol
