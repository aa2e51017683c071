// Looks for a new version and loads it with the designer's own parts, without its window: load FOLDER.
// Prints what was found and how it ended; status 0 when the file is whole.

#include "app/cDownload.h"
#include "app/DownloadFolder.h"
#include "app/UpdateRecord.h"
#include "base/FileAccess.h"
#include "ui/parts/LateModules.h"

#include <QCoreApplication>

#include <cstdio>
#include <ctime>
#include <memory>
#include <string>

using namespace pirol;

namespace {

int Say(const std::string& text, int status) {
    std::printf("%s\n", text.c_str());
    return status;
}

} // namespace

int main(int count, char* words[]) {
    const QCoreApplication application(count, words);
    const UpdateSource source = ReadUpdateSource(PIROL_UPDATE_ADDRESS, PIROL_UPDATE_KEYS, PIROL_UPDATE_AUTHORITY);
    const std::unique_ptr<Transport> transport = NewNetworkTransport(source.authority);
    const auto clock = std::chrono::steady_clock::now;
    VersionLookup lookup(*transport, source,
                         {PIROL_VERSION, "debian", updaterecord::HighestSerial(), std::time(nullptr)}, clock, [&] {
                             if (lookup.CurrentState() != VersionLookup::State::Looking)
                                 QCoreApplication::quit();
                         });
    lookup.Start();
    QCoreApplication::exec();
    if (lookup.CurrentState() == VersionLookup::State::Failed)
        return Say(std::string(MessageOf(lookup.Fault())), 1);
    updaterecord::AddSerial(lookup.Serial());
    if (lookup.CurrentState() == VersionLookup::State::UpToDate)
        return Say("newest", 0);

    const OfferedFile& file = lookup.Found().file;
    DownloadFolder target(PathOf(words[1]), file);
    cDownload download(*transport, target, file, source.UrlOf(file.name), clock, [&] {
        if (download.CurrentState() != cDownload::State::Loading)
            QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    });
    download.Start();
    if (download.CurrentState() == cDownload::State::Loading)
        QCoreApplication::exec();
    return download.CurrentState() == cDownload::State::Complete ? Say(TextOf(download.File()), 0)
                                                                 : Say(std::string(MessageOf(download.Fault())), 1);
}
