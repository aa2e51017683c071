#include "designer/view/Bitmaps.h"

#include <map>
#include <string>

namespace pirol {

std::string_view EmbeddedBitmap(std::string_view name);

namespace {

constexpr QRgb transparentKey = qRgb(255, 0, 255);

QImage Decode(std::string_view name) {
    const std::string_view bytes = EmbeddedBitmap(std::string(name) + ".bmp");
    QImage image = QImage::fromData(reinterpret_cast<const uchar*>(bytes.data()), static_cast<int>(bytes.size()), "BMP")
                       .convertToFormat(QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) == transparentKey)
                image.setPixel(x, y, 0);
    return image;
}

} // namespace

const QImage& Bitmap(std::string_view name) {
    static std::map<std::string, QImage, std::less<>> decoded;
    const auto found = decoded.find(name);
    return found != decoded.end() ? found->second : decoded.emplace(name, Decode(name)).first->second;
}

} // namespace pirol
