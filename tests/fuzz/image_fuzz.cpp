// Any bytes as the image file of a picture: it is shown within the size that is asked for, or not at all.

#include "fuzz/Fuzz.h"
#include "ui/canvas/PictureFile.h"

#include <QGuiApplication>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <unistd.h>

using namespace pirol;

extern "C" int LLVMFuzzerInitialize(int* argumentCount, char*** arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // What is wrong with an image is said on standard error; the fuzzer's own messages would drown.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    static QGuiApplication application(*argumentCount, *arguments);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::filesystem::path file =
        std::filesystem::temp_directory_path() / ("pirol-fuzz-image-" + std::to_string(getpid()));
    std::ofstream(file, std::ios::binary) << fuzz::TextOf(data, size);
    const QImage shown = DecodedPicture(file.string(), 1);
    fuzz::Require(std::max(shown.width(), shown.height()) <= largestPictureSide, "pictures are decoded no larger");
    std::filesystem::remove(file);
    return 0;
}
