#include "ui/dialogs/frmLoading.h"

#include "ui/parts/FormParts.h"

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

namespace pirol {
namespace {

constexpr auto unnoticed = std::chrono::milliseconds(200);
constexpr auto shortestRenewal = std::chrono::milliseconds(40);
/// Looking at the clock for every line would itself be noticed in a large project.
constexpr int linesPerLook = 128;

} // namespace

frmLoading::frmLoading(QWidget* owner)
    : QDialog(owner, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      lblProcess_(Named(new QLabel, "lblProcess", "Was geladen wird")),
      process_(Named(new QProgressBar, "Process", "Fortschritt")) {
    setObjectName("frmLoading");
    setWindowTitle("Projekt laden");
    lblProcess_->setTextFormat(Qt::PlainText);
    process_->setMinimumWidth(fontMetrics().averageCharWidth() * 48);

    auto* const all = new QVBoxLayout(this);
    all->addWidget(lblProcess_);
    all->addWidget(process_);
}

void frmLoading::SetMaximum(int maximum) {
    process_->setRange(0, maximum);
    begun_ = std::chrono::steady_clock::now();
}

void frmLoading::SetValue(int value) {
    const bool looks = value / linesPerLook != value_ / linesPerLook;
    value_ = value;
    if (looks && std::chrono::steady_clock::now() - renewed_ >= shortestRenewal)
        Renew();
}

void frmLoading::SetCaption(std::string_view caption) {
    lblProcess_->setText(ToText(caption));
    Renew();
}

void frmLoading::Renew() {
    renewed_ = std::chrono::steady_clock::now();
    if (renewed_ - begun_ < unnoticed)
        return;
    process_->setValue(value_);
    show();
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

} // namespace pirol
