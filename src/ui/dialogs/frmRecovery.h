#pragma once

#include "project/Snapshot.h"

#include <QDialog>

#include <ctime>

namespace pirol {

/// Offers a design that was left by a program that did not end normally.
class frmRecovery : public QDialog {
    Q_OBJECT

  public:
    enum class Answer { Restore, Discard, Later };

    /// The design, which is shown as a picture; when it was kept last; how many older ones there are.
    frmRecovery(const OpenDesign& design, std::time_t written, std::size_t others, QWidget* owner);

    /// What the user wants; closing the form means Later.
    Answer Chosen() const { return chosen_; }

  private:
    void Choose(Answer answer);

    Answer chosen_ = Answer::Later;
};

} // namespace pirol
