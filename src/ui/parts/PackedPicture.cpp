#include "ui/parts/PackedPicture.h"

#include <QtEndian>

#include <algorithm>
#include <cstdint>

namespace pirol {

QImage UnpackedPicture(std::string_view bytes) {
    if (bytes.empty())
        return {};
    const char* from = bytes.data();
    const int width = qFromLittleEndian<std::uint16_t>(from);
    const int height = qFromLittleEndian<std::uint16_t>(from + 2);
    from += 4;
    QImage image(width, height, QImage::Format_ARGB32);
    auto* pixel = reinterpret_cast<QRgb*>(image.bits()); // the rows follow one another without a gap
    for (const QRgb* const end = pixel + std::ptrdiff_t{width} * height; pixel != end; from += 5)
        pixel = std::fill_n(pixel, static_cast<std::uint8_t>(*from), qFromLittleEndian<QRgb>(from + 1));
    image.convertTo(QImage::Format_ARGB32_Premultiplied);
    return image;
}

} // namespace pirol
