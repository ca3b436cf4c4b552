#include "simhost/native/png_file.h"

#include <png.h>

#include <cstdio>
#include <vector>

namespace simhost {

bool WritePng(const std::string& path, LICE_IBitmap* bitmap) {
    const int width = bitmap->getWidth(), height = bitmap->getHeight();
    std::vector<unsigned char> rgb;
    rgb.reserve(static_cast<size_t>(width) * height * 3);
    for (int y = 0; y < height; ++y) {
        const LICE_pixel* row =
            bitmap->getBits() + static_cast<ptrdiff_t>(bitmap->isFlipped() ? height - 1 - y : y) * bitmap->getRowSpan();
        for (int x = 0; x < width; ++x)
            for (const int shift : {16, 8, 0}) rgb.push_back(row[x] >> shift & 255);
    }
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = width;
    image.height = height;
    image.format = PNG_FORMAT_RGB;
    if (png_image_write_to_file(&image, path.c_str(), 0, rgb.data(), 0, nullptr)) return true;
    std::remove(path.c_str());
    return false;
}

}  // namespace simhost
