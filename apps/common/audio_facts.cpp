#include "apps/common/audio_file.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <regex>

namespace {

constexpr int64_t Slack = 64;  // bytes by which many programs miscount

// Who writes into a pipe cannot know the size, and puts there all bits, or the most that a signed number holds.
bool Unknown(int64_t size) { return (size >= 0x7FFFF000 && size <= 0x80000000LL) || size >= 0xFFFFF000LL; }

// libsndfile corrects sizes that go beyond the file's end, and its log tells: "data : 192000 (should be 95961)".
double PromisedShare(SNDFILE* file) {
    static const std::regex correction(R"(: (\d{1,18}) \(should be (\d{1,18})\))");
    char text[16384] = "";
    sf_command(file, SFC_GET_LOG_INFO, text, sizeof text);
    double share = 1;
    for (std::cregex_iterator found(std::begin(text), std::find(std::begin(text), std::end(text), '\0'), correction),
         end;
         found != end; ++found) {
        const int64_t promised = std::stoll((*found)[1]), there = std::stoll((*found)[2]);
        if (promised > there + Slack && there > 0 && !Unknown(promised))
            share = std::max(share, static_cast<double>(promised) / static_cast<double>(there));
    }
    return share;
}

// FLAC says where its channels are heard by their number alone.
std::vector<int> FlacLayout(int channels) {
    constexpr int L = SF_CHANNEL_MAP_LEFT, R = SF_CHANNEL_MAP_RIGHT, C = SF_CHANNEL_MAP_CENTER,
                  Low = SF_CHANNEL_MAP_LFE, BackL = SF_CHANNEL_MAP_REAR_LEFT, BackR = SF_CHANNEL_MAP_REAR_RIGHT,
                  Back = SF_CHANNEL_MAP_REAR_CENTER, SideL = SF_CHANNEL_MAP_SIDE_LEFT,
                  SideR = SF_CHANNEL_MAP_SIDE_RIGHT;
    const std::vector<int> layouts[] = {{L, R, C},
                                        {L, R, BackL, BackR},
                                        {L, R, C, BackL, BackR},
                                        {L, R, C, Low, BackL, BackR},
                                        {L, R, C, Low, Back, SideL, SideR},
                                        {L, R, C, Low, BackL, BackR, SideL, SideR}};
    return channels >= 3 && channels <= 8 ? layouts[channels - 3] : std::vector<int>();
}

// Where other programs keep a comment in FLAC and Ogg, unknown to libsndfile: its length in four bytes, then the text.
std::string Description(const std::string& path) {
    constexpr char name[] = "DESCRIPTION=";
    constexpr size_t nameSize = sizeof name - 1;
    std::string head(65536, '\0');
    head.resize(static_cast<size_t>(std::ifstream(path, std::ios::binary).read(head.data(), 65536).gcount()));
    const size_t at = head.find(name);
    if (at == std::string::npos || at < 4) return "";
    size_t size = 0;
    for (size_t i = at; i-- > at - 4;) size = size << 8 | static_cast<unsigned char>(head[i]);
    return size > nameSize && size <= head.size() - at ? head.substr(at + nameSize, size - nameSize) : "";
}

}  // namespace

AudioFacts FactsOf(SNDFILE* file, const SF_INFO& info, const std::string& path) {
    AudioFacts facts;
    for (int tag = SF_STR_FIRST; tag <= SF_STR_LAST; ++tag)
        if (const char* text = tag == SF_STR_SOFTWARE ? nullptr : sf_get_string(file, tag)) facts.tags[tag] = text;
    const int kind = info.format & SF_FORMAT_TYPEMASK;
    if (kind == SF_FORMAT_FLAC || kind == SF_FORMAT_OGG)
        if (std::string text = Description(path); !text.empty())
            facts.tags.try_emplace(SF_STR_COMMENT, std::move(text));

    facts.channelMap.resize(info.channels);
    const int bytes = static_cast<int>(facts.channelMap.size() * sizeof(int));
    if (!sf_command(file, SFC_GET_CHANNEL_MAP_INFO, facts.channelMap.data(), bytes))
        facts.channelMap = kind == SF_FORMAT_FLAC ? FlacLayout(info.channels) : std::vector<int>();
    facts.promisedShare = PromisedShare(file);
    return facts;
}
