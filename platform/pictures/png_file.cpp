#include "platform/pictures/png_file.h"

#include <zlib.h>

#include "platform/files.h"

static std::string BigEndian(uint32_t value) {
    std::string bytes;
    for (const int shift : {24, 16, 8, 0}) bytes += static_cast<char>(value >> shift);
    return bytes;
}

static const Bytef* BytesOf(const std::string& text) {
    return reinterpret_cast<const Bytef*>(text.data());
}

static std::string Chunk(const std::string& type, const std::string& data) {
    const std::string body = type + data;
    const auto sum = static_cast<uint32_t>(crc32(0, BytesOf(body), static_cast<uInt>(body.size())));
    return BigEndian(static_cast<uint32_t>(data.size())) + body + BigEndian(sum);
}

static std::string Compressed(const std::string& data) {
    uLongf size = compressBound(static_cast<uLong>(data.size()));
    std::string packed(size, '\0');
    compress(reinterpret_cast<Bytef*>(packed.data()), &size, BytesOf(data), static_cast<uLong>(data.size()));
    packed.resize(size);
    return packed;
}

bool WritePng(const std::string& path, const PixelRows& picture) {
    std::string rows;
    for (int y = 0; y < picture.height; ++y) {
        rows += '\0';  // no filter
        const uint32_t* row = picture.first + y * picture.span;
        for (int x = 0; x < picture.width; ++x)
            for (const int shift : {16, 8, 0}) rows += static_cast<char>(row[x] >> shift);
    }
    const std::string header = BigEndian(picture.width) + BigEndian(picture.height) +
                               std::string("\x08\x02\0\0\0", 5);  // 8 bits each of red, green and blue
    const std::string png =
        "\x89PNG\r\n\x1A\n" + Chunk("IHDR", header) + Chunk("IDAT", Compressed(rows)) + Chunk("IEND", "");

    std::FILE* file = OpenFile(path, "wb");
    if (!file) return false;
    const bool written = std::fwrite(png.data(), 1, png.size(), file) == png.size();
    if (std::fclose(file) == 0 && written) return true;
    RemoveFile(path);
    return false;
}
