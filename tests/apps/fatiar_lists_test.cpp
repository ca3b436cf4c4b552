// The lists, read by strict readers of their forms and by the programs that they are for.
#include "tests/apps/workshop.h"
#include "tests/support/pattern.h"

using Rows = std::vector<std::vector<double>>;

// The numbers of each match, a time code of 30 frames as seconds at 29.97; between matches nothing but blanks may be.
static Rows Read(const std::string& text, const std::string& pattern) {
    Rows rows;
    for (const std::vector<std::string>& match : Matches(text, pattern)) {
        rows.emplace_back();
        for (size_t i = 1; i < match.size(); ++i) {
            int h, m, s, f;
            const bool code = std::sscanf(match[i].c_str(), "%2d:%2d:%2d:%2d", &h, &m, &s, &f) == 4;
            rows.back().push_back(code ? (((h * 60 + m) * 60 + s) * 30 + f) * 1001 / 30000.0 : std::stod(match[i]));
        }
    }
    const std::string rest = Replaced(text, pattern);
    EXPECT_EQ(rest.find_first_not_of(" \n"), std::string::npos) << rest.substr(0, 200);
    return rows;
}

TEST_F(Fatiar, MilPedacosNaoSeDesviamEmNenhumaLista) {
    std::vector<Sound> sounds;
    for (int i = 0; i < 1100; ++i) sounds.push_back({0.17 * i + 0.03, 0.1});
    Write("fala.wav", Wav16, 8000, 1, Recording(8000, 187.1, sounds, 1));
    const std::string lists = "fala.wav --lista rotulos --lista ffconcat=f --lista mlt --lista edl --quadros 29,97";
    const Rows pieces = Read(Pieces(lists, "fala.wav"), R"(\d+,([\d.]+),([\d.]+),([\d.]+) )");
    const Rows labels = Read(Text("fala-fatiado.txt"), R"((\d+\.\d{6})\t(\d+\.\d{6})\t(\d+)\n)");
    const Rows points = Read(Run("sed '1s/^ffconcat version 1.0$//' f").out,
                             R"(file 'fala\.wav'\ninpoint (\d+\.\d+)\noutpoint (\d+\.\d+)\n)");
    const Rows entries = Read(Run("sed -n '/<entry/,/<entry/p' fala-fatiado.mlt").out,
                              R"#(<entry producer="gravacao" in="(\d+)" out="(\d+)"/>)#");
    const std::string code = R"( (\d\d:\d\d:\d\d:\d\d))";
    const Rows events =
        Read(Run("for f in fala-fatiado.edl fala-fatiado-2.edl; do "
                 "sed '1s/^TITLE: fala$//; 2s/^FCM: NON-DROP FRAME$//' $f; done")
                 .out,
             R"((\d{3})  AX       A     C       )" + code + code + code + code + R"(\n\* FROM CLIP NAME: fala\.wav\n)");
    ASSERT_EQ(std::vector({pieces.size(), labels.size(), points.size(), entries.size(), events.size()}),
              std::vector<size_t>(5, 1100));

    const double frame = 1001 / 30000.0;
    double at = 0;  // in the mlt
    for (size_t i = 0; i < pieces.size(); ++i) {
        SCOPED_TRACE(i);
        const double before = i > 0 ? 0.0025 : 0, behind = i + 1 < pieces.size() ? 0.0025 : 0;  // the joins' middles
        const double source = pieces[i][2] + before, end = pieces[i][2] + pieces[i][1] - behind;
        for (const Rows* seconds : {&labels, &points}) {
            ASSERT_NEAR((*seconds)[i][0], source, 2e-6);
            ASSERT_NEAR((*seconds)[i][1], end, 2e-6);
        }
        const double in = entries[i][0] * frame, out = (entries[i][1] + 1) * frame;
        ASSERT_NEAR(in, source, frame);
        ASSERT_NEAR(out, end, frame);
        ASSERT_NEAR(at, pieces[i][0] + before, frame / 2 + 1e-6);
        const std::vector<double> event = {i % 999 + 1.0, in, out, at, at += out - in};
        for (size_t k = 0; k < 5; ++k) ASSERT_NEAR(events[i][k], event[k], 1e-6);
        ASSERT_EQ(labels[i][2], i + 1);
    }
}

TEST_F(Fatiar, OProjetoTemUmaFaixaPorGravacao) {
    Run("mkdir g");
    Write("g/o \"b\".flac", Flac16, 8000, 1, Recording(8000, 1, {{0.1, 0.3}}, 1));
    Write("a.wav", Wav16, 8000, 1, Recording(8000, 1.2, {{0.6, 0.3}}, 1));
    Good("fatiar g/*.flac a.wav --juntas --lista rpp=p.rpp");
    const auto item = [](const std::string& place, const std::string& name, const std::string& offset,
                         const std::string& source) {
        return "<ITEM\nPOSITION " + place + "\nLENGTH 0.3\nFADEIN 0 0.005 0 1 0 0 0\nFADEOUT 0 0.005 0 1 0 0 0\nNAME " +
               name + "\nSOFFS " + offset + "\n<SOURCE " + source + "\n>\n>\n";
    };
    const auto items = [&](const std::string& name, const std::string& source) {
        return item("0", name, "0.1", source) + item("0.295", name, "0.6", source) + ">\n";
    };
    EXPECT_EQ(Run("sed 1d p.rpp | sed -En 's/^ *//; /^(<|>|POS|LEN|FADE|NAME|SOFFS|FILE)/p'").out,
              "<TRACK\nNAME 'o \"b\"'\n" + items("'o \"b\".flac'", "FLAC\nFILE 'g/o \"b\".flac'") + "<TRACK\nNAME a\n" +
                  items("a.wav", "WAVE\nFILE \"a.wav\"") + ">\n");
    Good("fatiar a.wav g/*.flac --lista rpp=q.rpp");
    EXPECT_EQ(Run("grep -c '<TRACK' q.rpp; head -1 q.rpp | grep -c '^<REAPER_PROJECT 0.1 \"6.0\" [0-9]*$'").out,
              "2\n1\n");
}

class ListasLidas : public Fatiar, public testing::WithParamInterface<const char*> {
  protected:
    // In seconds, where in the file each level has become the next.
    std::vector<double> Changes(const std::string& name, const std::vector<double>& levels) {
        const std::vector<double> samples = Samples(name);
        const ptrdiff_t window = std::max(info.samplerate / 200 * info.channels, 10);
        std::vector<double> changes;
        for (auto at = samples.begin(); samples.end() - at >= window && changes.size() + 1 < levels.size();
             at += window / 10)
            if (std::fabs(*std::max_element(at, at + window) - levels[changes.size() + 1]) < 0.03)
                changes.push_back(static_cast<double>(at - samples.begin()) / info.channels / info.samplerate);
        return changes;
    }
};

// Pieces are told apart by their loudness.
TEST_P(ListasLidas, OProgramaDeVideoCortaNoMesmoLugar) {
    const std::string program = GetParam();
    if (Run("command -v " + program).status != 0) GTEST_SKIP() << program << " is missing";
    const std::vector<double> levels = {0.69, 0.5, 0.3, 0.6, 0.2, 0.4};
    std::vector<Sound> sounds;
    for (const double level : levels) sounds.push_back({0.4 + 1.43 * sounds.size(), 0.83, level / 0.7});
    Write("fala.wav", Wav16, 48000, 2, Recording(48000, 10, sounds));
    Good("fatiar fala.wav -o nossa.wav --lista mlt --lista ffconcat");
    const bool melt = program == "melt";
    const Outcome run = Run(melt ? "render() { timeout 100 melt -silent nossa.mlt -consumer avformat:deles.wav "
                                   "acodec=pcm_s16le vn=1; }; render || render"
                                 : "ffmpeg -v error -f concat -i nossa.ffconcat deles.wav");
    ASSERT_EQ(run.status, 0) << run.err;
    const std::vector<double> ours = Changes("nossa.wav", levels), theirs = Changes("deles.wav", levels);
    ASSERT_EQ(ours.size() + theirs.size(), 10u);
    // A video frame; or, at both ends of each piece so far, a packet of 2048 frames.
    for (size_t i = 0; i < 5; ++i)
        EXPECT_NEAR(theirs[i], ours[i], melt ? 1 / 25.0 + 0.001 : 2 * (i + 1) * 2048 / 48000.0) << i;
}
INSTANTIATE_TEST_SUITE_P(Programas, ListasLidas, testing::Values("ffmpeg", "melt"),
                         [](const auto& program) { return std::string(program.param); });
