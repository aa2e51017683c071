// Draws the design of a project into a picture, no larger than WIDTH x HEIGHT, without a screen:
//   design-picture PROJECT PICTURE.png WIDTH HEIGHT

#include "base/FileAccess.h"
#include "project/ProjectFile.h"
#include "ui/canvas/DesignImage.h"

#include <QGuiApplication>

#include <cstdio>

int main(int argumentCount, char* arguments[]) {
    if (argumentCount != 5) {
        std::fputs("design-picture PROJECT PICTURE.png WIDTH HEIGHT\n", stderr);
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argumentCount, arguments);
    const QSize largest(QByteArray(arguments[3]).toInt(), QByteArray(arguments[4]).toInt());
    pirol::ProjectModel model;
    pirol::ReadPRLFile(pirol::PathOf(arguments[1]), model);
    return pirol::DesignImage(model, largest, pirol::PicturesOf(model)).save(arguments[2], "PNG", 0) ? 0 : 1;
}
