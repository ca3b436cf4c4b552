// Runs the real program on recordings made here, and compares with what follows from how they were made.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <sstream>

#include "tests/apps/workshop.h"

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
    static constexpr int Wav16 = SF_FORMAT_WAV | SF_FORMAT_PCM_16;

    // What --csv tells of this recording: number, start on the track, length, place in the recording, for each piece.
    std::string Pieces(const std::string& line, const std::string& recording) {
        const Outcome run = workshop.Run("fatiar --csv " + line);
        EXPECT_EQ(run.status, 0) << run.err;
        EXPECT_EQ(run.err, "");
        std::string pieces, row;
        for (std::istringstream rows(run.out); std::getline(rows, row);)
            if (row.starts_with(recording + ',')) pieces += row.substr(recording.size() + 1) + ' ';
        return pieces;
    }

    Workshop workshop;
    SF_INFO info;
};

TEST_F(Fatiar, AchaOsMesmosPedacosEmCadaFormato) {
    // The pause of 50 ms is shorter than the block, the one of 60 ms is not.
    const std::vector<Sound> sounds = {{0.5, 1}, {1.55, 0.2}, {1.81, 0.3}, {2.5, 0.4}};
    const struct {
        const char* name;
        int format, rate;
    } cases[] = {{"f0", Wav16, 48000},
                 {"f1", SF_FORMAT_FLAC | SF_FORMAT_PCM_24, 44100},
                 {"f2", SF_FORMAT_AIFF | SF_FORMAT_FLOAT, 96000},
                 {"f3", SF_FORMAT_CAF | SF_FORMAT_ALAC_16, 48000},
                 {"f4", SF_FORMAT_W64 | SF_FORMAT_PCM_32, 8000}};
    for (const auto& [name, format, rate] : cases) workshop.Write(name, format, rate, 2, Recording(rate, 3.2, sounds));
    for (const auto& [name, format, rate] : cases)
        EXPECT_EQ(Pieces("f?", name), "1,0.5,1.25,0.5 2,1.745,0.3,1.81 3,2.04,0.4,2.5 ");

    const std::pair<const char*, const char*> options[] = {
        {"--sem-fechar f0", "1,0.5,1.25,0.5 2,1.81,0.3,1.81 3,2.5,0.4,2.5 "},
        {"--bloco=400 f0", "1,0.5,2.4,0.5 "},
        {"--piso -60,5 f0", "1,0,3.2,0 "},  // the faint part sounds too
        {"--piso 0 f0", "1,0,3.2,0 "},      // nothing sounds: left whole
    };
    for (const auto& [line, wanted] : options) EXPECT_EQ(Pieces(line, "f0"), wanted);

    // A lossy coding smears what is short, not where speech begins and ends.
    workshop.Write("f.ogg", SF_FORMAT_OGG | SF_FORMAT_VORBIS, 48000, 2, Recording(48000, 3.2, sounds));
    const std::string one = Pieces("f.ogg --bloco 500", "f.ogg");
    double start = 0, length = 0;
    EXPECT_EQ(std::sscanf(one.c_str(), "1,%lf,%lf", &start, &length), 2);
    EXPECT_NEAR(start, 0.5, 0.021);
    EXPECT_NEAR(length, 2.4, 0.021) << one;
}

// What a listener hears: each piece sample for sample, straight fades of 5 ms at both ends and across each join.
TEST_F(Fatiar, OAudioGravadoTemOsPedacosComFadesNasEmendas) {
    const std::vector<Sound> sounds = {{0.5, 1}, {1.8, 0.3}, {2.5, 0.4}};
    const int rate = 48000, fade = 240;
    workshop.Write("fala.wav", Wav16, rate, 2, Recording(rate, 3.2, sounds));
    const std::vector<double> heard = workshop.Samples("fala.wav", &info);
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
        const char* line;
        const char* output;
        int type;
    } ways[] = {{"fatiar fala.wav -o sai", "sai/fala-fatiado.wav", SF_FORMAT_WAV},
                {"fatiar -o sai/fundo --formato flac fala.wav", "sai/fundo/fala-fatiado.flac", SF_FORMAT_FLAC},
                {"fatiar -o 'Um Nome.FLAC' fala.wav", "Um Nome.FLAC", SF_FORMAT_FLAC}};
    for (const auto& [line, output, type] : ways) {
        SCOPED_TRACE(line);
        EXPECT_EQ(workshop.Run(line).status, 0);
        const std::vector<double> found = workshop.Samples(output, &info);
        EXPECT_EQ(info.format, type | SF_FORMAT_PCM_24);
        ASSERT_EQ(found.size(), wanted.size());
        for (size_t i = 0; i < found.size(); ++i) ASSERT_NEAR(found[i], wanted[i], 1.0 / 8388608) << "sample " << i;
    }
    EXPECT_EQ(workshop.Listing(),
              "Um Nome.FLAC fala.wav sai sai/antes.png sai/depois.png sai/fala-fatiado.wav sai/fundo "
              "sai/fundo/antes.png sai/fundo/depois.png sai/fundo/fala-fatiado.flac ");
}

TEST_F(Fatiar, SemFecharOAudioCorreJuntoComAGravacaoSemFades) {
    const int rate = 48000;
    workshop.Write("fala.wav", Wav16, rate, 2, Recording(rate, 3.2, {{0.5, 1}, {1.8, 0.3}, {2.5, 0.4}}));
    const std::vector<double> heard = workshop.Samples("fala.wav", &info);
    ASSERT_EQ(workshop.Run("fatiar fala.wav --sem-fechar -o no-lugar.wav").status, 0);
    const std::vector<double> inPlace = workshop.Samples("no-lugar.wav", &info);
    ASSERT_EQ(info.frames, std::lround(2.9 * rate));
    for (size_t i = 0; i < inPlace.size(); ++i) {
        const double t = static_cast<double>(i / 2) / rate;
        const bool loud = (t >= 0.5 && t < 1.5) || (t >= 1.8 && t < 2.1) || t >= 2.5;
        ASSERT_EQ(inPlace[i], loud ? heard[i] : 0.0) << "sample " << i;
    }
}

TEST_F(Fatiar, TabelasServemParaQualquerNomeDeArquivo) {
    const std::string stem = "a, \"b\"\\\n\xc3\xa3\xff";  // one byte of it is no UTF-8
    workshop.Write(stem + ".wav", Wav16, 8000, 2, Recording(8000, 1.5, {{0.25, 0.5}, {1.0, 0.25}}));
    const Outcome run = workshop.Run("fatiar a*.wav --json --csv -o sai");
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_NE(run.out.find("retirado: 0.750 s"), std::string::npos) << run.out;

    const std::string readable = R"(a, \"b\"\\\u000aã\ufffd)";
    const auto object = [&](const std::string& output) {
        return "\n    {\n      \"arquivo\": \"" + readable + ".wav\",\n      \"saida\": " + output +
               R"(,
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
    EXPECT_EQ(workshop.Text("sai/" + stem + "-fatiado.json"),
              head + object("\"sai/" + readable + "-fatiado.wav\"") + "\n  ]\n}\n");
    EXPECT_EQ(workshop.Run("fatiar a* a* --json").out, head + object("null") + "," + object("null") + "\n  ]\n}\n");

    const std::string quoted = "\"a, \"\"b\"\"\\\n\xc3\xa3\xff.wav\"";
    EXPECT_EQ(workshop.Text("sai/" + stem + "-fatiado.csv"),
              "arquivo,pedaco,posicao,duracao,origem\n" + quoted + ",1,0.25,0.5,0.25\n" + quoted + ",2,0.745,0.25,1\n");
}

// Arguments that make no sense, or whose work cannot be done: over its own input, two results in one file, a second
// result that cannot be FLAC, so that the first goes too.
static constexpr char Impossible[] = R"#(
''; "$(printf 'nao-ha\na')"; pasta; texto.wav; vazia.wav; toco.mp3; /dev/null; boa.wav >/dev/full; boa.wav
texto.wav -o sai; boa.wav -o texto.wav/sub; boa.wav -o /proc/nada; boa.wav -o; boa.wav -o ''; boa.wav -o
boa.wav; boa.wav nove.wav -o um.wav; boa.wav -o um.wav --formato=flac; boa.wav nove.wav -o sai --formato flac;
boa.wav -o sai --formato mp3; boa.wav --piso ''; boa.wav --piso; boa.wav --piso nan; boa.wav --piso -1e999;
boa.wav --piso -37dB; boa.wav --piso 37; boa.wav --bloco 12abc; boa.wav --bloco 0; boa.wav --bloco 55.5;
boa.wav --bloco 99999999999; boa.wav --sem-fechar=1; boa.wav --seem-fechar; boa.wav -x; boa.wav --csv --json;
boa.wav --formato flac)#";

TEST_F(Fatiar, EntradaRuimDaUmaLinhaESaida2ENaoDeixaNada) {
    workshop.Write("boa.wav", Wav16, 8000, 1, Workshop::Noise(8000));
    workshop.Write("vazia.wav", Wav16, 8000, 1, {});
    workshop.Write("nove.wav", Wav16, 8000, 9, Workshop::Noise(9000));
    workshop.Run("echo isto nao e audio >texto.wav; mkdir pasta");
    std::ofstream(workshop.Path("toco.mp3")) << "\xff\xfb\x90\x44" << std::string(2000, '\0');  // its decoder complains
    const std::string before = workshop.Listing();
    std::istringstream list(Impossible);
    for (std::string arguments; std::getline(list, arguments, ';');) {
        std::replace(arguments.begin(), arguments.end(), '\n', ' ');
        SCOPED_TRACE(arguments);
        const Outcome run = workshop.Run("fatiar " + arguments);
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
        EXPECT_TRUE(run.err.starts_with("fatiar: ") && run.err.ends_with("\n")) << run.err;
        EXPECT_EQ(workshop.Listing(), before);
    }
    EXPECT_EQ(workshop.Run("fatiar").status, 2);
    EXPECT_EQ(workshop.Run("fatiar --ajuda").status, 0);
}
