#include "designer/view/Bitmaps.h"

#include <map>
#include <span>
#include <string>

namespace pirol {

std::string_view EmbeddedBitmap(std::string_view fileName);
std::string_view EmbeddedIcon(std::string_view fileName);

namespace {

constexpr QRgb transparent = qRgb(255, 0, 255);
constexpr int iconSizes[] = {16, 24, 32, 48};
constexpr int programIconSizes[] = {16, 24, 32, 48, 64, 128, 256};

QImage Decode(std::string_view bytes, const char* format) {
    return QImage::fromData(reinterpret_cast<const uchar*>(bytes.data()), static_cast<int>(bytes.size()), format);
}

QImage DecodeBitmap(std::string_view name) {
    QImage image =
        Decode(EmbeddedBitmap(std::string(name) + ".bmp"), "BMP").convertToFormat(QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) == transparent)
                image.setPixel(x, y, 0);
    return image;
}

void AddSizes(QIcon& icon, std::string_view name, std::span<const int> sizes) {
    for (const int size : sizes) {
        const std::string fileName = std::string(name) + "_" + std::to_string(size) + ".png";
        if (const QImage image = Decode(EmbeddedIcon(fileName), "PNG"); !image.isNull())
            icon.addPixmap(QPixmap::fromImage(image));
    }
}

} // namespace

const QImage& Bitmap(std::string_view name) {
    static std::map<std::string, QImage, std::less<>> decoded;
    const auto found = decoded.find(name);
    return found != decoded.end() ? found->second : decoded.emplace(name, DecodeBitmap(name)).first->second;
}

QIcon KindIcon(ComponentKind kind) {
    const std::string name(RowOf(kind).imageKey);
    QIcon icon(QPixmap::fromImage(Bitmap(QString::fromStdString(name).toUpper().toStdString())));
    AddSizes(icon, name, std::span(iconSizes).subspan(1));
    return icon;
}

QIcon CommandIcon(std::string_view name) {
    QIcon icon;
    AddSizes(icon, name, iconSizes);
    return icon;
}

QIcon ProgramIcon() {
    QIcon icon;
    AddSizes(icon, "pirol", programIconSizes);
    return icon;
}

} // namespace pirol
