#include "ui/canvas/PictureFile.h"

#include "controls/dBild.h"
#include "ui/parts/RunBeside.h"

#include <QFileInfo>
#include <QImageReader>

#include <algorithm>
#include <unordered_map>

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

PictureSource PicturesOf(const ProjectModel& model) {
    std::unordered_map<std::string, QImage> images;
    RunBeside([&] {
        qint64 bytes = 0;
        for (std::size_t index = 1; index < model.ElementCount(ComponentKind::Picture); ++index) {
            const std::string& path = static_cast<const dBild&>(model.Element({ComponentKind::Picture, index})).File;
            if (bytes >= mostPictureBytes || images.contains(path))
                continue;
            bytes += images.emplace(path, DecodedPicture(path, 1)).first->second.sizeInBytes();
        }
    });
    std::unordered_map<std::string, QPixmap> pictures;
    for (const auto& [path, image] : images)
        pictures.emplace(path, QPixmap::fromImage(image));
    return [pictures = std::move(pictures)](const std::string& path, double) {
        const auto found = pictures.find(path);
        return found == pictures.end() ? QPixmap() : found->second;
    };
}

} // namespace pirol
