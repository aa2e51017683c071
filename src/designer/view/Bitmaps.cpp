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

QImage DecodeIcon(std::string_view fileName) {
    return Decode(EmbeddedIcon(fileName), "PNG").convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

/// Keeps what was decoded, by name.
class DecodedImages {
  public:
    explicit DecodedImages(QImage (*decode)(std::string_view)) : decode_(decode) {}

    const QImage& operator[](std::string_view name) {
        const auto found = images_.find(name);
        return found != images_.end() ? found->second : images_.emplace(name, decode_(name)).first->second;
    }

  private:
    QImage (*decode_)(std::string_view);
    std::map<std::string, QImage, std::less<>> images_;
};

const QImage& Icon(const std::string& fileName) {
    static DecodedImages images(DecodeIcon);
    return images[fileName];
}

void AddSizes(QIcon& icon, std::string_view name, std::span<const int> sizes) {
    for (const int size : sizes)
        if (const QImage& image = IconImage(name, size); !image.isNull())
            icon.addPixmap(QPixmap::fromImage(image));
}

} // namespace

const QImage& Bitmap(std::string_view name) {
    static DecodedImages images(DecodeBitmap);
    return images[name];
}

const QImage& LargeBitmap(std::string_view name) {
    return Icon(std::string(name) + "_3x.png");
}

const QImage& IconImage(std::string_view name, int size) {
    return Icon(std::string(name) + "_" + std::to_string(size) + ".png");
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
