#include "platform/pictures/png_file.h"

#include <zlib.h>

#include "platform/files.h"

static std::string BigEndian(uint32_t value) {
    std::string bytes;
    for (const int shift : {24, 16, 8, 0}) bytes += static_cast<char>(value >> shift);
    return bytes;
}

static const Bytef* BytesOf(const std::string& text) { return reinterpret_cast<const Bytef*>(text.data()); }

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

static constexpr char Signature[] = "\x89PNG\r\n\x1A\n";

// 8 bits each of red, green and blue.
static std::string Header(int width, int height) {
    return Signature + Chunk("IHDR", BigEndian(width) + BigEndian(height) + std::string("\x08\x02\0\0\0", 5));
}

bool WritePng(const std::string& path, const PixelRows& picture) {
    std::string rows;
    for (int y = 0; y < picture.height; ++y) {
        rows += '\0';  // no filter
        const uint32_t* row = picture.first + y * picture.span;
        for (int x = 0; x < picture.width; ++x)
            for (const int shift : {16, 8, 0}) rows += static_cast<char>(row[x] >> shift);
    }
    const std::string png = Header(picture.width, picture.height) + Chunk("IDAT", Compressed(rows)) + Chunk("IEND", "");

    std::FILE* file = OpenFile(path, "wb");
    if (!file) return false;
    const bool written = std::fwrite(png.data(), 1, png.size(), file) == png.size();
    if (std::fclose(file) == 0 && written) return true;
    RemoveFile(path);
    return false;
}

static bool ReadBytes(const std::string& path, std::string& bytes) {
    std::FILE* file = OpenFile(path, "rb");
    if (!file) return false;
    char block[4096];
    while (const size_t read = std::fread(block, 1, sizeof block, file)) bytes.append(block, read);
    std::fclose(file);
    return true;
}

bool ReadPng(const std::string& path, int* width, int* height, std::vector<uint32_t>* pixels) {
    constexpr size_t sizeAt = 16, packedAt = 41;  // behind the signature, a chunk, and the head of the next
    std::string png;
    if (!ReadBytes(path, png) || png.size() < packedAt) return false;
    const auto byte = [](const std::string& bytes, size_t at) { return uint32_t{static_cast<uint8_t>(bytes[at])}; };
    const auto number = [&](size_t at) { return byte(png, at + 2) << 8 | byte(png, at + 3); };
    *width = static_cast<int>(number(sizeAt));
    *height = static_cast<int>(number(sizeAt + 4));
    if (png.compare(0, packedAt - 8, Header(*width, *height)) != 0) return false;

    const size_t rowBytes = 1 + static_cast<size_t>(*width) * 3;
    std::string rows(rowBytes * *height, '\0');
    auto size = static_cast<uLongf>(rows.size());
    const auto packed = static_cast<uLong>(png.size() - packedAt);
    const int status = uncompress(reinterpret_cast<Bytef*>(rows.data()), &size, BytesOf(png) + packedAt, packed);
    pixels->clear();
    for (size_t at = 0; at < rows.size(); ++at)
        if (at % rowBytes % 3 == 1)
            pixels->push_back(byte(rows, at) << 16 | byte(rows, at + 1) << 8 | byte(rows, at + 2));
    return status == Z_OK && size == rows.size();
}
