// Runs the real program on recordings made here, and compares with what follows from how they were made.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

#include "tests/apps/program.h"
#include "tests/apps/workshop.h"

namespace fs = std::filesystem;

struct Sound {
    double start, length;  // seconds, whole windows of 10 ms
};

// Two channels: loud, no sample like its neighbours, where there is sound; faint elsewhere.
static std::vector<double> Recording(int rate, double seconds, const std::vector<Sound>& sounds) {
    std::vector<double> samples = Workshop::Noise(static_cast<int>(seconds * rate + 0.5) * 2);
    for (size_t i = 0; i < samples.size(); ++i) {
        const double t = static_cast<double>(i / 2) / rate;
        bool loud = false;
        for (const Sound& s : sounds) loud |= t >= s.start - 1e-9 && t < s.start + s.length - 1e-9;
        if (!loud) samples[i] *= 0.005;
    }
    return samples;
}

class Fatiar : public testing::Test {
  protected:
    Outcome Call(const std::vector<std::string>& arguments, const char* out = nullptr) {
        return RunProgram("fatiar", arguments, out);
    }

    // What --csv tells of this recording: number, start on the track, length, place in the recording, for each piece.
    std::string Pieces(const Outcome& run, const std::string& recording) {
        EXPECT_EQ(run.status, 0) << run.err;
        EXPECT_EQ(run.err, "");
        std::string pieces, line;
        for (std::istringstream lines(run.out); std::getline(lines, line);)
            if (line.starts_with(recording + ',')) pieces += line.substr(recording.size() + 1) + ' ';
        return pieces;
    }

    Workshop workshop;
};

TEST_F(Fatiar, AchaOsMesmosPedacosEmCadaFormato) {
    // The pause of 50 ms is shorter than the block, the one of 60 ms is not.
    const std::vector<Sound> sounds = {{0.5, 1}, {1.55, 0.2}, {1.81, 0.3}, {2.5, 0.4}};
    struct {
        int format, rate;
    } const cases[] = {{SF_FORMAT_WAV | SF_FORMAT_PCM_16, 48000},
                       {SF_FORMAT_FLAC | SF_FORMAT_PCM_24, 44100},
                       {SF_FORMAT_AIFF | SF_FORMAT_FLOAT, 96000},
                       {SF_FORMAT_CAF | SF_FORMAT_ALAC_16, 48000},
                       {SF_FORMAT_W64 | SF_FORMAT_PCM_32, 8000}};
    std::vector<std::string> all;
    for (const auto& [format, rate] : cases)
        all.push_back(workshop.Write("f" + std::to_string(all.size()), format, rate, 2, Recording(rate, 3.2, sounds)));
    std::vector<std::string> arguments = all;
    arguments.push_back("--csv");
    const Outcome run = Call(arguments);
    for (const std::string& recording : all)
        EXPECT_EQ(Pieces(run, recording), "1,0.5,1.25,0.5 2,1.745,0.3,1.81 3,2.04,0.4,2.5 ");

    const std::string& first = all[0];
    const std::pair<std::vector<std::string>, const char*> options[] = {
        {{"--sem-fechar"}, "1,0.5,1.25,0.5 2,1.81,0.3,1.81 3,2.5,0.4,2.5 "},
        {{"--bloco=400"}, "1,0.5,2.4,0.5 "},
        {{"--piso", "-60,5"}, "1,0,3.2,0 "},  // the faint part sounds too
        {{"--piso", "0"}, "1,0,3.2,0 "},      // nothing sounds: left whole
    };
    for (const auto& [given, wanted] : options) {
        arguments = given;
        arguments.insert(arguments.end(), {"--csv", first});
        EXPECT_EQ(Pieces(Call(arguments), first), wanted);
    }

    // A lossy coding smears what is short, not where speech begins and ends.
    const int vorbis = SF_FORMAT_OGG | SF_FORMAT_VORBIS;
    const std::string lossy = workshop.Write("f.ogg", vorbis, 48000, 2, Recording(48000, 3.2, sounds));
    const std::string one = Pieces(Call({lossy, "--bloco", "500", "--csv"}), lossy);
    double start = 0, length = 0;
    EXPECT_EQ(std::sscanf(one.c_str(), "1,%lf,%lf", &start, &length), 2);
    EXPECT_NEAR(start, 0.5, 0.021);
    EXPECT_NEAR(length, 2.4, 0.021) << one;
}

// What a listener hears: each piece sample for sample, straight fades of 5 ms at both ends and across each join.
TEST_F(Fatiar, OAudioGravadoTemOsPedacosComFadesNasEmendas) {
    const std::vector<Sound> sounds = {{0.5, 1}, {1.8, 0.3}, {2.5, 0.4}};
    const int rate = 48000, fade = 240;
    const std::vector<double> samples = Recording(rate, 3.2, sounds);
    const std::string input = workshop.Write("fala.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16, rate, 2, samples);
    SF_INFO info;
    const std::vector<double> heard = ReadAll(input, &info);

    std::vector<double> wanted;
    for (const Sound& s : sounds) {
        const int from = static_cast<int>(std::lround(s.start * rate)),
                  length = static_cast<int>(std::lround(s.length * rate));
        const size_t at = wanted.empty() ? 0 : wanted.size() - 2 * fade;
        wanted.resize(at + 2 * length);
        for (int i = 0; i < 2 * length; ++i) {
            const double in = std::min(1.0, i / 2 / double(fade)), out = std::min(1.0, (length - i / 2) / double(fade));
            wanted[at + i] += in * out * heard[2 * from + i];
        }
    }
    const struct {
        std::vector<std::string> options;
        const char* output;
        int type;
    } ways[] = {
        {{"-o", workshop.Path("sai")}, "sai/fala-fatiado.wav", SF_FORMAT_WAV},
        {{"-o", workshop.Path("sai/fundo"), "--formato", "flac"}, "sai/fundo/fala-fatiado.flac", SF_FORMAT_FLAC},
        {{"-o", workshop.Path("Um Nome.FLAC")}, "Um Nome.FLAC", SF_FORMAT_FLAC}};
    for (const auto& [options, output, type] : ways) {
        SCOPED_TRACE(output);
        std::vector<std::string> arguments = options;
        arguments.push_back(input);
        EXPECT_EQ(Call(arguments).status, 0);
        const std::vector<double> found = ReadAll(workshop.Path(output), &info);
        EXPECT_EQ(info.format, type | SF_FORMAT_PCM_24);
        ASSERT_EQ(found.size(), wanted.size());
        for (size_t i = 0; i < found.size(); ++i) ASSERT_NEAR(found[i], wanted[i], 1.0 / 8388608) << "sample " << i;
    }
    EXPECT_EQ(workshop.Listing(),
              "Um Nome.FLAC fala.wav sai sai/antes.png sai/depois.png sai/fala-fatiado.wav sai/fundo "
              "sai/fundo/antes.png sai/fundo/depois.png sai/fundo/fala-fatiado.flac ");

    // Left in place, the pieces keep time with the recording, and nothing is faded.
    ASSERT_EQ(Call({input, "--sem-fechar", "-o", workshop.Path("no-lugar.wav")}).status, 0);
    const std::vector<double> inPlace = ReadAll(workshop.Path("no-lugar.wav"), &info);
    ASSERT_EQ(info.frames, std::lround(2.9 * rate));
    for (size_t i = 0; i < inPlace.size(); ++i) {
        const double t = static_cast<double>(i / 2) / rate;
        const bool loud = (t >= 0.5 && t < 1.5) || (t >= 1.8 && t < 2.1) || t >= 2.5;
        ASSERT_EQ(inPlace[i], loud ? heard[i] : 0.0) << "sample " << i;
    }
}

TEST_F(Fatiar, TabelasServemParaQualquerNomeDeArquivo) {
    const std::vector<double> samples = Recording(8000, 1.5, {{0.25, 0.5}, {1.0, 0.25}});
    const std::string stem = "a, \"b\"\\\n\xc3\xa3\xff";  // one byte of it is no UTF-8
    const std::string input = workshop.Write(stem + ".wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 8000, 2, samples);
    const Outcome run = Call({input, "--json", "--csv", "-o", workshop.Path("sai")});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_NE(run.out.find("retirado: 0.750 s"), std::string::npos) << run.out;

    const auto object = [&](const std::string& output) {
        const std::string readable = workshop.Path(R"(a, \"b\"\\\u000aã\ufffd.wav)");
        return R"(
    {
      "arquivo": ")" +
               readable + R"(",
      "saida": )" +
               output + R"(,
      "taxa": 8000,
      "canais": 2,
      "duracao": 1.5,
      "retirado": 0.75,
      "pedacos": [
        {"posicao": 0.25, "duracao": 0.5, "origem": 0.25},
        {"posicao": 0.745, "duracao": 0.25, "origem": 1}
      ]
    })";
    };
    const std::string head = "{\n  \"piso_db\": -37,\n  \"bloco_ms\": 55,\n  \"fechar\": true,\n  \"arquivos\": [";
    const std::string written = '"' + workshop.Path(R"(sai/a, \"b\"\\\u000aã\ufffd-fatiado.wav)") + '"';
    const std::string beside = workshop.Path("sai/" + stem + "-fatiado");
    EXPECT_EQ(Text(beside + ".json"), head + object(written) + "\n  ]\n}\n");
    EXPECT_EQ(Call({input, input, "--json"}).out, head + object("null") + "," + object("null") + "\n  ]\n}\n");

    const std::string quoted = '"' + workshop.Path("a, \"\"b\"\"\\\n\xc3\xa3\xff.wav") + '"';
    EXPECT_EQ(Text(beside + ".csv"),
              "arquivo,pedaco,posicao,duracao,origem\n" + quoted + ",1,0.25,0.5,0.25\n" + quoted + ",2,0.745,0.25,1\n");
}

TEST_F(Fatiar, EntradaRuimDaUmaLinhaESaida2ENaoDeixaNada) {
    const auto good = workshop.Write("boa.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 8000, 1, Workshop::Noise(8000));
    workshop.Write("vazia.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 8000, 1, {});
    const auto nine = workshop.Write("nove.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 8000, 9, Workshop::Noise(9000));
    std::ofstream(workshop.Path("texto.wav")) << "isto nao e audio\n";
    std::ofstream(workshop.Path("toco.mp3")) << "\xff\xfb\x90\x44" << std::string(2000, '\0');  // its decoder complains
    fs::create_directory(workshop.Path("pasta"));
    const std::string before = workshop.Listing(), sai = workshop.Path("sai");

    std::vector<std::vector<std::string>> cases = {
        {},
        {""},
        {workshop.Path("nao-ha\n.wav")},
        {workshop.Path("pasta")},
        {workshop.Path("texto.wav")},
        {workshop.Path("vazia.wav")},
        {workshop.Path("toco.mp3")},
        {"/dev/null"},
        {good, workshop.Path("texto.wav"), "-o", sai},
        {good, "-o", workshop.Path("texto.wav/sub")},
        {good, "-o", "/proc/nada"},
        {good, "-o"},
        {good, "-o", ""},
        {good, "-o", good},                           // would write over its own input
        {good, nine, "-o", workshop.Path("um.wav")},  // two results, one file
        {good, "-o", workshop.Path("um.wav"), "--formato=flac"},
        {good, nine, "-o", sai, "--formato", "flac"},  // the second cannot be FLAC, so the first goes too
        {good, "-o", sai, "--formato", "mp3"},
        {good, "--piso", ""},
    };
    for (const char* options : {"--piso", "--piso nan", "--piso -1e999", "--piso -37dB", "--piso 37", "--bloco 12abc",
                                "--bloco 0", "--bloco 55.5", "--bloco 99999999999", "--sem-fechar=1", "--seem-fechar",
                                "-x", "--csv --json", "--formato flac"}) {
        std::istringstream words(options);
        cases.push_back({good});
        cases.back().insert(cases.back().end(), std::istream_iterator<std::string>(words), {});
    }
    for (const auto& arguments : cases) {
        const Outcome run = Call(arguments);
        std::string line = "fatiar";
        for (const std::string& a : arguments) line += " " + a;
        SCOPED_TRACE(line);
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
        EXPECT_TRUE(run.err.starts_with("fatiar: ") && run.err.ends_with("\n")) << run.err;
        EXPECT_EQ(workshop.Listing(), before);
    }
    EXPECT_EQ(Call({good}, "/dev/full").status, 2);
    EXPECT_EQ(Call({"--ajuda"}).status, 0);
}
