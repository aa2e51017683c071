#include "ui/canvas/PictureFile.h"

#include <QFileInfo>
#include <QImageReader>
#include <QPixmapCache>

namespace pirol {
namespace {

QImage DecodedPicture(const QFileInfo& file, const QSize& size) {
    QImageReader reader(file.absoluteFilePath());
    reader.setDecideFormatFromContent(true);
    if (const QSize own = reader.size(); own.isValid())
        reader.setScaledSize(size.boundedTo(own).boundedTo({largestPictureSide, largestPictureSide}));
    return reader.read();
}

} // namespace

QPixmap PictureFile(const std::string& path, const QSize& size) {
    const QFileInfo file(QString::fromStdString(path));
    if (path.empty() || !file.isFile())
        return {};
    const QString key = QStringLiteral("%1|%2|%3|%4x%5")
                            .arg(file.absoluteFilePath())
                            .arg(file.lastModified().toMSecsSinceEpoch())
                            .arg(file.size())
                            .arg(size.width())
                            .arg(size.height());
    const QString failedKey = key + QStringLiteral("|failed");
    QPixmap picture;
    if (QPixmapCache::find(key, &picture))
        return picture;
    if (QPixmapCache::find(failedKey, &picture))
        return {};
    picture = QPixmap::fromImage(DecodedPicture(file, size));
    picture.isNull() ? QPixmapCache::insert(failedKey, QPixmap(1, 1)) : QPixmapCache::insert(key, picture);
    return picture;
}

} // namespace pirol
