// What one recording gives: pieces, sound, tables, refusals.
#include <sstream>

#include "tests/apps/workshop.h"
#include "tests/support/folders.h"

TEST_F(Fatiar, AchaOsMesmosPedacosEmCadaFormato) {
    // The pause of 50 ms is shorter than the block, the one of 60 ms is not.
    const std::vector<Sound> sounds = {{0.5, 1}, {1.55, 0.2}, {1.81, 0.3}, {2.5, 0.4}};
    const std::tuple<const char*, int, int> cases[] = {{"f0", Wav16, 48000},
                                                       {"f1", SF_FORMAT_FLAC | SF_FORMAT_PCM_24, 44100},
                                                       {"f2", SF_FORMAT_AIFF | SF_FORMAT_FLOAT, 96000},
                                                       {"f3", SF_FORMAT_CAF | SF_FORMAT_ALAC_16, 48000},
                                                       {"f4", SF_FORMAT_W64 | SF_FORMAT_PCM_32, 8000}};
    for (const auto& [name, format, rate] : cases) Write(name, format, rate, 2, Recording(rate, 3.2, sounds));
    for (const auto& [name, format, rate] : cases)
        EXPECT_EQ(Pieces("f?", name), "1,0,1.25,0.5 2,1.245,0.3,1.81 3,1.54,0.4,2.5 ");

    const std::pair<const char*, const char*> options[] = {
        {"--sem-fechar f0", "1,0.5,1.25,0.5 2,1.81,0.3,1.81 3,2.5,0.4,2.5 "},
        {"--bloco=400 f0", "1,0,2.4,0.5 "},
        {"--margem 50,20 f0", "1,0,1.68,0.45 2,1.675,0.47,2.45 "},  // over the pause of 60 ms, which so stays
        {"--margem 30,20 --sem-fechar f0", "1,0.47,1.3,0.47 2,1.78,0.35,1.78 3,2.47,0.45,2.47 "},
        {"--pausa 100 f0", "1,0,1.71,0.45 2,1.705,0.5,2.45 "},
    };
    for (const auto& [line, wanted] : options) EXPECT_EQ(Pieces(line, "f0"), wanted);

    // A lossy coding smears what is short, not where speech begins and ends.
    Write("f.ogg", SF_FORMAT_OGG | SF_FORMAT_VORBIS, 48000, 2, Recording(48000, 3.2, sounds));
    const std::string one = Pieces("f.ogg --bloco 500", "f.ogg");
    double start = 0, length = 0;
    EXPECT_EQ(std::sscanf(one.c_str(), "1,0,%lf,%lf", &length, &start), 2);
    EXPECT_NEAR(start, 0.5, 0.021);
    EXPECT_NEAR(length, 2.4, 0.021) << one;
}

// What a listener hears: each piece sample for sample, in its place; closed up, straight fades of 5 ms at every edge.
TEST_F(Fatiar, OAudioGravadoTemOsPedacosComFadesNasEmendas) {
    const std::vector<Sound> sounds = {{0.5, 1}, {1.8, 0.3}, {2.5, 0.4}};
    const int rate = 48000, fade = 240;
    Write("fala.wav", Wav16, rate, 2, Recording(rate, 3.2, sounds));
    const std::vector<double> heard = Samples("fala.wav");
    std::vector<double> closed, open(heard.size());
    for (const Sound& s : sounds) {
        const long from = std::lround(s.start * rate), length = std::lround(s.length * rate);
        const size_t at = closed.empty() ? 0 : closed.size() - 2 * fade;
        closed.resize(at + 2 * length);
        for (long i = 0; i < 2 * length; ++i) {
            const double in = std::min(1.0, i / 2 / double(fade)), out = std::min(1.0, (length - i / 2) / double(fade));
            closed[at + i] += in * out * heard[2 * from + i];
            open[2 * from + i] = heard[2 * from + i];
        }
    }
    const std::tuple<const char*, const char*, int, std::vector<double>> ways[] = {
        {"fala.wav -o sai", "sai/fala-fatiado.wav", SF_FORMAT_WAV, closed},
        {"-o sai/fundo --formato flac fala.wav", "sai/fundo/fala-fatiado.flac", SF_FORMAT_FLAC, closed},
        {"-o 'Um Nome.FLAC' fala.wav", "Um Nome.FLAC", SF_FORMAT_FLAC, closed},
        {"fala.wav --sem-fechar -o no-lugar.wav", "no-lugar.wav", SF_FORMAT_WAV, open}};
    std::string told;
    for (const auto& [arguments, output, type, wanted] : ways) {
        SCOPED_TRACE(arguments);
        told = Good(std::string("fatiar ") + arguments).out;
        const std::vector<double> found = Samples(output);
        EXPECT_EQ(info.format, type | SF_FORMAT_PCM_24);
        ASSERT_EQ(found.size(), wanted.size());
        const double half = 0.51 / 8388608;  // of the least step of 24 bits
        for (size_t i = 0; i < found.size(); ++i) ASSERT_NEAR(found[i], wanted[i], half) << "sample " << i;
    }
    EXPECT_NE(told.find("retirado: 1.500 s de silencio (46.9%); restam 3.200 s em 3 pedacos"), std::string::npos);
    EXPECT_EQ(Listing(),
              "Um Nome.FLAC fala.wav no-lugar.wav sai sai/antes.png sai/depois.png sai/fala-fatiado.wav sai/fundo "
              "sai/fundo/antes.png sai/fundo/depois.png sai/fundo/fala-fatiado.flac ");
}

TEST_F(Fatiar, TabelasServemParaQualquerNomeDeArquivo) {
    const std::string stem = "a, \"b\"\\\n\xc3\xa3\xff";  // one byte of it is no UTF-8
    Write(stem + ".wav", Wav16, 44100, 2, Recording(44100, 1.5, {{0.25, 0.5}, {1.09, 0.25}}));
    const std::string table = Good("fatiar a*.wav --json --csv -o sai").out;
    EXPECT_NE(table.find("retirado: 0.750 s de silencio (50.0%); restam 0.745 s em 2 pedacos"), std::string::npos);

    const std::string json = Text("sai/" + stem + "-fatiado.json");
    std::string told;
    for (const char c : json) told += c == '\n' || c == ' ' ? "" : std::string(1, c);
    const std::string name = R"(a,\"b\"\\\nã)"
                             "\xef\xbf\xbd";  // the replacement character
    EXPECT_EQ(told, R"({"piso_db":-37.0,"bloco_ms":55,"fechar":true,"arquivos":[{"arquivo":")" + name +
                        R"(.wav","saida":"sai/)" + name +
                        R"(-fatiado.wav","taxa":44100,"canais":2,"duracao":1.5,"retirado":0.75,"restam":0.745011338,)"
                        R"("pedacos":[{"posicao":0.0,"duracao":0.5,"origem":0.25},)"
                        R"({"posicao":0.495,"duracao":0.25,"origem":1.09}]}]})");
    const std::string both = Good("fatiar a*.wav a*.wav --json").out;
    EXPECT_EQ(std::count(both.begin(), both.end(), '['), 3) << both;

    const std::string quoted = "\"a, \"\"b\"\"\\\n\xc3\xa3\xff.wav\"";
    EXPECT_EQ(Text("sai/" + stem + "-fatiado.csv"),
              "arquivo,pedaco,posicao,duracao,origem\n" + quoted + ",1,0,0.5,0.25\n" + quoted + ",2,0.495,0.25,1.09\n");
}

// Arguments that make no sense, or whose work cannot be done.
static constexpr char Impossible[] = R"#(
''; "$(printf 'nao-ha\na')"; pasta; texto.wav; vazia.wav; toco.mp3; /dev/null; boa.wav >/dev/full; boa.wav -o
texto.wav/sub; boa.wav -o /proc/nada; boa.wav -o; boa.wav -o ''; boa.wav -o boa.wav; boa.wav nove.wav -o
um.wav; boa.wav -o um.wav --formato=flac; boa.wav -o sai --formato mp3; boa.wav --piso ''; boa.wav --piso;
boa.wav --piso nan; boa.wav --piso -1e999; boa.wav --piso -37dB; boa.wav --piso 37; boa.wav --bloco 12abc;
boa.wav --bloco 0; boa.wav --bloco 55.5; boa.wav --bloco 99999999999; boa.wav --sem-fechar=1; boa.wav
--seem-fechar; boa.wav -x; boa.wav --csv --json; boa.wav --formato flac; nove.wav -o sai --formato flac;
boa.wav -o x.mp3; boa.wav -o x.M4A; boa.wav --lista; boa.wav --lista foo; boa.wav --lista mlt=; boa.wav
--quadros 26 --lista edl; boa.wav --quadros 25; boa.wav --origem x; boa.wav nove.wav --lista edl --origem x;
boa.wav --margem 1 --pausa 1; boa.wav --pausa 1 --sem-fechar; boa.wav --lista ffconcat --sem-fechar; boa.wav
--margem 1,; boa.wav --margem -1; boa.wav --pausa 1s; boa.wav nove.wav --lista edl=x; boa.wav nove.wav -o -;
boa.wav - </dev/zero; - <texto.wav; - --lista mlt <boa.wav; boa.wav trinta.wav --juntas; boa.wav texto.wav
--juntas -o sai; boa.wav --lista rotulos=pasta; boa.wav --lista rotulos=x --lista edl=x)#";

TEST_F(Fatiar, EntradaRuimDaUmaLinhaESaida2ENaoDeixaNada) {
    Write("boa.wav", Wav16, 8000, 1, Noise(8000));
    Write("vazia.wav", Wav16, 8000, 1, {});
    Write("nove.wav", Wav16, 8000, 9, Noise(9000));
    Write("trinta.wav", Wav16, 30000, 1, Noise(9000));
    Run("echo isto nao e audio >texto.wav; mkdir pasta");
    GravarArquivo(Path("toco.mp3"), "\xff\xfb\x90\x44" + std::string(2000, '\0'));  // its decoder complains
    const std::string before = Listing();
    std::istringstream list(Impossible);
    for (std::string arguments; std::getline(list, arguments, ';');) {
        std::replace(arguments.begin(), arguments.end(), '\n', ' ');
        SCOPED_TRACE(arguments);
        const Outcome run = Run("fatiar " + arguments);
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
        EXPECT_TRUE(run.err.starts_with("fatiar: ") && run.err.ends_with("\n")) << run.err;
        EXPECT_EQ(Listing(), before);
    }
    EXPECT_EQ(Run("fatiar").status, 2);
}
