#include "ui/parts/Bitmaps.h"

#include "base/Text.h"
#include "ui/parts/PackedPicture.h"
#include "ui/parts/Theme.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>

#include <algorithm>
#include <map>
#include <span>
#include <string>

namespace pirol {

std::string_view EmbeddedBitmap(std::string_view fileName);
std::string_view EmbeddedIcon(std::string_view fileName);

namespace {

constexpr QRgb transparent = qRgb(255, 0, 255);
constexpr int iconSizes[] = {16, 20, 24, 32, 48};
constexpr int programIconSizes[] = {16, 24, 32, 48, 64, 128, 256};

QImage DecodeBitmap(std::string_view name) {
    const std::string_view bytes = EmbeddedBitmap(std::string(name) + ".bmp");
    QImage image = QImage::fromData(reinterpret_cast<const uchar*>(bytes.data()), static_cast<int>(bytes.size()), "BMP")
                       .convertToFormat(QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) == transparent)
                image.setPixel(x, y, 0);
    return image;
}

QImage DecodeIcon(std::string_view name) {
    return UnpackedPicture(EmbeddedIcon(Concatenate(name, ".packed")));
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

const QImage& Icon(const std::string& name) {
    static DecodedImages images(DecodeIcon);
    return images[name];
}

/// What is dark on light ground becomes as light on dark ground; light colours stay.
QImage DecodeForDarkGround(std::string_view name) {
    constexpr int half = 128;
    QImage image = DecodeIcon(name).convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const QColor colour = image.pixelColor(x, y).toHsl();
            if (colour.alpha() != 0 && colour.lightness() < half)
                image.setPixelColor(x, y,
                                    QColor::fromHsl(colour.hslHue(), colour.hslSaturation(),
                                                    2 * half - 1 - colour.lightness(), colour.alpha()));
        }
    return image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

const QImage& IconOnDarkGround(const std::string& name) {
    static DecodedImages images(DecodeForDarkGround);
    return images[name];
}

/// A picture in several sizes. Each is decoded when it is first shown, as few of the many are needed at the start.
class EmbeddedIconEngine final : public QIconEngine {
  public:
    /// `smallest` stands for 16 pixels where it is not empty; the other sizes are the icons of that name.
    /// A sign follows the ground that it stands on, light or dark.
    EmbeddedIconEngine(std::string name, std::span<const int> sizes, std::string smallest, bool isSign)
        : name_(std::move(name)), smallest_(std::move(smallest)), sizes_(sizes), isSign_(isSign) {}

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        if (mode == QIcon::Normal)
            return QPixmap::fromImage(ImageFor(size));
        // A plain icon of that one size knows how to look disabled.
        return QIcon(QPixmap::fromImage(ImageFor(size))).pixmap(size, 1.0, mode, state);
    }
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state, qreal) override {
        return pixmap(size, mode, state);
    }
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        const double ratio = painter->device()->devicePixelRatioF();
        painter->drawPixmap(rect, pixmap(rect.size() * ratio, mode, state));
    }
    QIconEngine* clone() const override { return new EmbeddedIconEngine(*this); }
    QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override {
        QList<QSize> available;
        for (const int size : sizes_)
            if (size <= largestOffered)
                available << QSize(size, size);
        return available;
    }

  private:
    /// Window managers fetch every size that is offered, whether or not they show it.
    static constexpr int largestOffered = 64;

    const QImage& ImageFor(const QSize& wanted) const {
        const int length = std::max(wanted.width(), wanted.height());
        const auto found = std::find_if(sizes_.begin(), sizes_.end(), [length](int size) { return size >= length; });
        const int size = found != sizes_.end() ? *found : sizes_.back();
        if (isSign_ && IsDark(QGuiApplication::palette()))
            return IconOnDarkGround(name_ + "_" + std::to_string(size));
        return size == sizes_.front() && !smallest_.empty() ? Bitmap(smallest_) : IconImage(name_, size);
    }

    std::string name_;
    std::string smallest_;
    std::span<const int> sizes_;
    bool isSign_;
};

QIcon NewIcon(std::string_view name, std::span<const int> sizes, std::string smallest = {}) {
    const std::string firstFile = std::string(name) + "_" + std::to_string(sizes.front()) + ".packed";
    if (smallest.empty() && EmbeddedIcon(firstFile).empty())
        return {};
    const bool isSign = sizes.data() != std::data(programIconSizes);
    return QIcon(new EmbeddedIconEngine(std::string(name), sizes, std::move(smallest), isSign));
}

} // namespace

const QImage& Bitmap(std::string_view name) {
    static DecodedImages images(DecodeBitmap);
    return images[name];
}

const QImage& LargeBitmap(std::string_view name) {
    return Icon(std::string(name) + "_3x");
}

const QImage& IconImage(std::string_view name, int size) {
    return Icon(std::string(name) + "_" + std::to_string(size));
}

QIcon KindIcon(ComponentKind kind) {
    const std::string name(RowOf(kind).imageKey);
    return NewIcon(name, iconSizes, QString::fromStdString(name).toUpper().toStdString());
}

QIcon CommandIcon(std::string_view name) {
    return NewIcon(name, iconSizes);
}

QIcon PaperIcon(std::string_view name) {
    return QIcon(new EmbeddedIconEngine(std::string(name), iconSizes, {}, false));
}

QIcon ProgramIcon() {
    return NewIcon("pirol", programIconSizes);
}

} // namespace pirol
