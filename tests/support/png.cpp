#include "tests/support/png.h"

#include "platform/files.h"

static void BigEndian(std::string& out, uint32_t value) {
    for (const int shift : {24, 16, 8, 0}) out += static_cast<char>(value >> shift);
}

static uint32_t Crc(const std::string& bytes) {
    uint32_t crc = ~0u;
    for (const unsigned char byte : bytes) {
        crc ^= byte;
        for (int i = 0; i < 8; ++i) crc = crc >> 1 ^ (crc & 1 ? 0xEDB88320u : 0);
    }
    return ~crc;
}

static uint32_t Adler(const std::string& bytes) {
    uint32_t a = 1, b = 0;
    for (const unsigned char byte : bytes) {
        a = (a + byte) % 65521;
        b = (b + a) % 65521;
    }
    return b << 16 | a;
}

static std::string Chunk(const std::string& typeAndData) {
    std::string chunk;
    BigEndian(chunk, static_cast<uint32_t>(typeAndData.size() - 4));
    chunk += typeAndData;
    BigEndian(chunk, Crc(typeAndData));
    return chunk;
}

bool WritePng(const std::string& path, const driver::Picture& picture) {
    std::string rows;
    for (int y = 0; y < picture.height; ++y) {
        rows += '\0';  // no filter
        for (int x = 0; x < picture.width; ++x)
            for (const int shift : {16, 8, 0}) rows += static_cast<char>(picture.At(x, y) >> shift);
    }
    std::string packed = "\x78\x01";
    for (size_t at = 0; at < rows.size(); at += 65535) {  // blocks that are stored, not compressed
        const size_t n = std::min<size_t>(65535, rows.size() - at);
        packed += static_cast<char>(at + n == rows.size());
        for (const size_t v : {n, ~n}) packed += {static_cast<char>(v), static_cast<char>(v >> 8)};
        packed.append(rows, at, n);
    }
    BigEndian(packed, Adler(rows));

    std::string header = "IHDR";
    BigEndian(header, picture.width);
    BigEndian(header, picture.height);
    header += std::string("\x08\x02\0\0\0", 5);  // 8 bits of red, green and blue
    const std::string png = "\x89PNG\r\n\x1A\n" + Chunk(header) + Chunk("IDAT" + packed) + Chunk("IEND");
    std::FILE* file = OpenFile(path, "wb");
    if (!file) return false;
    const bool written = std::fwrite(png.data(), 1, png.size(), file) == png.size();
    return std::fclose(file) == 0 && written;
}
