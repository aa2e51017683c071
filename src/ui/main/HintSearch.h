#pragma once

#include "base/RuntimeError.h"
#include "codegen/Hints.h"

#include <QObject>

#include <memory>
#include <optional>
#include <stop_token>
#include <thread>

namespace pirol {

/// Finds the hints of a design beside the window's thread, on a copy of it. One search runs at a time; a new one breaks
/// off the one before. A disk that does not answer holds up neither the window nor the end of the program.
class HintSearch : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(HintSearch)

  public:
    explicit HintSearch(QObject* parent);
    ~HintSearch() override;

    /// What FindHints takes.
    void Start(const ProjectModel& model, const std::string& projectFile, CodeOptions options);
    /// Breaks off; nothing is told of what has been found.
    void Stop();

  signals:
    void Found(const std::vector<pirol::Hint>& hints);
    void Failed(const pirol::RuntimeError& error);

  private:
    struct Task;
    void Run(const std::shared_ptr<Task>& task);
    static void Find(const std::shared_ptr<Task>& task);
    void End(const std::shared_ptr<Task>& task);

    std::shared_ptr<Task> running_;
    std::shared_ptr<Task> next_; ///< waits until the one before has stopped
    std::thread thread_;
};

} // namespace pirol
