#include "ui/canvas/PictureFile.h"

#include <QFileInfo>
#include <QImageReader>
#include <QPixmapCache>

#include <algorithm>

namespace pirol {

QImage DecodedPicture(const std::string& path, double scale) {
    const QFileInfo file(QString::fromStdString(path));
    if (path.empty() || !file.isFile())
        return {};
    QImageReader reader(file.absoluteFilePath());
    reader.setDecideFormatFromContent(true);
    const QSize own = reader.size();
    if (own.isValid())
        reader.setScaledSize((QSizeF(own) * std::min(scale, 1.0))
                                 .toSize()
                                 .boundedTo({largestPictureSide, largestPictureSide})
                                 .expandedTo({1, 1}));
    QImage picture = reader.read();
    if (own.isValid() && !picture.isNull())
        picture.setDevicePixelRatio(static_cast<double>(picture.width()) / own.width());
    return picture;
}

QPixmap PictureFile(const std::string& path, double scale) {
    const QFileInfo file(QString::fromStdString(path));
    if (path.empty() || !file.isFile())
        return {};
    const QString key = QStringLiteral("%1|%2|%3|%4")
                            .arg(file.absoluteFilePath())
                            .arg(file.lastModified().toMSecsSinceEpoch())
                            .arg(file.size())
                            .arg(scale);
    const QString failedKey = key + QStringLiteral("|failed");
    QPixmap picture;
    if (QPixmapCache::find(key, &picture))
        return picture;
    if (QPixmapCache::find(failedKey, &picture))
        return {};
    picture = QPixmap::fromImage(DecodedPicture(path, scale));
    picture.isNull() ? QPixmapCache::insert(failedKey, QPixmap(1, 1)) : QPixmapCache::insert(key, picture);
    return picture;
}

} // namespace pirol
