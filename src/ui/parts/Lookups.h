#pragma once

#include <QObject>

#include <functional>
#include <memory>

namespace pirol {

/// Looks at files that may lie on a disk that does not answer: each look on a thread of its own, so that none waits for
/// another one. Nobody waits for them, not even the program's end.
class Lookups : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(Lookups)

  public:
    using Answer = std::function<void()>;

    explicit Lookups(QObject* parent);
    ~Lookups() override;

    /// Begins a look. What it gives runs on this object's thread as long as the object is there. A look must not raise
    /// anything and must not touch what may go before it.
    void Begin(std::function<Answer()> look);

  private:
    struct Shared;

    std::shared_ptr<Shared> shared_;
};

} // namespace pirol
