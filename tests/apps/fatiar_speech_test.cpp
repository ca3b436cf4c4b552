// Speech as people record it: several microphones, pauses that are to stay, recordings that went wrong.
#include <filesystem>
#include <random>
#include <sstream>

#include "tests/apps/workshop.h"
#include "tests/support/folders.h"
#include "tests/support/wave_writer.h"

// Of pieces that grew, the joins and fades are those that the module makes of such pieces.
TEST_F(Fatiar, AMargemSeFechaComoOModuloFecha) {
    const std::vector<Sound> sounds = {{0.5, 1}, {1.8, 0.3}, {2.5, 0.4}};
    std::vector<double> all = Recording(48000, 3.2, sounds), loud = all;
    for (size_t i = 0; i < all.size(); ++i) {
        const double t = static_cast<double>(i / 2) / 48000;
        for (const Sound& s : sounds)  // what the margin will take is made to sound
            if (t >= s.start - 0.040001 && t < s.start + s.length + 0.019999 && std::fabs(all[i]) < 0.01)
                loud[i] *= 100, all[i] *= 2;
    }
    Write("baixa.wav", Wav16, 48000, 2, all);
    Write("alta.wav", Wav16, 48000, 2, loud);
    EXPECT_EQ(Pieces("baixa.wav --margem 40,20 -o b.wav", "baixa.wav"), Pieces("alta.wav -o a.wav", "alta.wav"));
    const std::vector<double> grown = Samples("b.wav"), cut = Samples("a.wav");
    ASSERT_EQ(grown.size(), cut.size());
    for (size_t i = 0; i < cut.size(); ++i)
        ASSERT_TRUE(grown[i] == cut[i] || std::fabs(grown[i]) < 0.03) << "sample " << i;
    for (const size_t edge : {size_t{0}, cut.size() - 2}) EXPECT_LT(std::fabs(grown[edge]), 1e-4);
}

TEST_F(Fatiar, MicrofonesJuntosSaemEmSincronia) {
    Write("ana.wav", Wav16, 48000, 1, Recording(48000, 2.5, {{0.2, 0.5}, {1.7, 0.4}}, 1));
    Write("bia.flac", Flac16, 48000, 2, Recording(48000, 3, {{0.9, 0.3}, {2.7, 0.2}}));
    const std::string wanted = "1,0,0.5,0.2 2,0.495,0.3,0.9 3,0.79,0.4,1.7 4,1.185,0.2,2.7 ";
    EXPECT_EQ(Pieces("ana.wav bia.flac --juntas", "ana.wav"), wanted);
    Good("fatiar ana.wav bia.flac --juntas -o sai");
    EXPECT_EQ(Listing(), "ana.wav bia.flac sai sai/ana-fatiado.wav sai/antes.png sai/bia-fatiado.flac sai/depois.png ");
    const std::vector<double> ana = Samples("ana.wav"), bia = Samples("bia.flac");
    const std::vector<double> a = Samples("sai/ana-fatiado.wav"), b = Samples("sai/bia-fatiado.flac");
    ASSERT_EQ(b.size(), a.size() * 2);
    // In the middle of each piece both give the same frame; behind its end the shorter one is silent.
    for (const auto& [at, source] : {std::pair{0.2, 0.4}, {0.6, 1.005}, {0.9, 1.81}, {1.25, 2.765}}) {
        const auto frame = static_cast<size_t>(std::lround(at * 48000)),
                   from = static_cast<size_t>(std::lround(source * 48000));
        EXPECT_EQ(a[frame], from < ana.size() ? ana[from] : 0.0) << at;
        EXPECT_EQ(b[2 * frame + 1], bia[2 * from + 1]) << at;
    }
}

TEST_F(Fatiar, ResultadosDuvidososSaoDitosEmUmaLinha) {
    const std::vector<Sound> three = {{0, 1}, {1.3, 1}, {2.6, 1.4}};
    Write("boa", Wav16, 8000, 1, Recording(8000, 4, three, 1));
    Write("baixa", Wav16, 8000, 1, Recording(8000, 4, {{1, 2, 0.01}}, 1));
    Write("curta", Wav16, 8000, 1, Recording(8000, 4, {{1, 0.5}}, 1));
    Write("muda", Wav16, 8000, 1, std::vector<double>(8000));
    Run("head -c 40000 boa >cortada; head -c 300 boa >toco");
    Write("flac", Flac16, 8000, 1, Recording(8000, 4, three, 1));
    Run("head -c $(($(stat -c %s flac) / 2)) flac >cortado.flac");
    // As programs write it that cannot know the length.
    Run("cp boa cano; printf '\\377\\377\\377\\377' | dd of=cano bs=1 seek=4 conv=notrunc; "
        "printf '\\377\\377\\377\\377' | dd of=cano bs=1 seek=40 conv=notrunc");
    const std::pair<const char*, const char*> cases[] = {
        {"boa", ""},
        {"boa --piso -60", "nada foi cortado; o fundo fica perto de -49 dB; tente --piso -45"},
        {"boa --bloco 900", "nada foi cortado; o fundo fica perto de -49 dB; tente um --bloco menor que 900"},
        {"boa --bloco 900 --piso -60 --sem-fechar", "nada foi cortado; o fundo fica perto de -49 dB; tente --piso -45"},
        {"boa --pausa 3000", "nada foi cortado; o fundo fica perto de -49 dB; tente menos --margem ou --pausa"},
        {"baixa", "so ha silencio: nada chega a -37 dB; o fundo fica perto de -49 dB; tente --piso -45"},
        {"muda", "so ha silencio, do comeco ao fim; confira o microfone ou o canal gravado"},
        {"curta", "saiu quase tudo (87.5%); o fundo fica perto de -49 dB; tente --piso -45"},
        {"cortada", "o cabecalho promete 4.000 s, mas o arquivo so tem 2.497 s; tente copiar de novo"},
        {"cortado.flac", "o cabecalho promete 4.000 s, mas o arquivo so tem "},
        {"cano", ""},
    };
    for (const auto& [line, doubt] : cases) {
        SCOPED_TRACE(line);
        const std::string name = std::string(line).substr(0, std::string(line).find(' '));
        const Outcome run = Run(std::string("fatiar ") + line);
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.err.substr(0, run.err.find(doubt)), *doubt ? "fatiar: aviso: '" + name + "': " : "");
        EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), name == "toco" ? 2 : *doubt ? 1 : 0) << run.err;
    }
}

static const std::pair<std::string, int> Codings[] = {{".wav", Wav16},
                                                      {".flac", Flac16},
                                                      {".aiff", SF_FORMAT_AIFF | SF_FORMAT_FLOAT},
                                                      {".ogg", SF_FORMAT_OGG | SF_FORMAT_VORBIS},
                                                      {".opus", SF_FORMAT_OGG | SF_FORMAT_OPUS},
                                                      {".mp3", SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III},
                                                      {".w64", SF_FORMAT_W64 | SF_FORMAT_PCM_24},
                                                      {".caf", SF_FORMAT_CAF | SF_FORMAT_ALAC_16},
                                                      {".au", SF_FORMAT_AU | SF_FORMAT_ULAW}};

// Whatever is in a file, the program says one line about it or slices it. BROKEN_SEEDS asks for more than a few.
TEST_F(Fatiar, ArquivosQuebradosNuncaDerrubamOPrograma) {
    const char* const wanted = std::getenv("BROKEN_SEEDS");
    const int seeds = wanted ? std::atoi(wanted) : 5;
    Run("mkdir mal");
    std::mt19937 random(20);
    for (const auto& [ending, format] : Codings) {
        Write("inteiro", format, 48000, 1, Recording(48000, 0.8, {{0.1, 0.2}, {0.5, 0.2}}, 1));
        for (int seed = 0; seed < seeds; ++seed) {
            std::string bytes = Text("inteiro");
            ASSERT_GT(bytes.size(), 1000u) << ending;
            if (seed % 3 == 0) bytes.resize(1 + random() % bytes.size());
            const size_t reach = seed % 2 ? bytes.size() : std::min<size_t>(bytes.size(), 200);
            for (auto flips = random() % 12 + 1; flips > 0; --flips) bytes[random() % reach] ^= 1 << random() % 8;
            GravarArquivo(Path("mal/" + std::to_string(seed) + ending), bytes);
        }
    }
    const std::string sound(4000, '\x40');
    const std::pair<std::string, WaveText> odd[] = {{"sem-canais", {1, 0, 16, 48000, sound}},
                                                    {"canais", {1, 65535, 16, 48000, sound}},
                                                    {"sem-taxa", {1, 1, 16, 0, sound}},
                                                    {"taxa-1", {1, 1, 16, 1, sound}},
                                                    {"taxa-absurda", {1, 1, 16, 2147483647, sound}},
                                                    {"taxa-negativa", {1, 1, 16, 4294967295, sound}},
                                                    {"tamanho", {1, 1, 16, 48000, sound, 0xFFFFFFF0}}};
    for (const auto& [name, wave] : odd) std::filesystem::rename(WriteWave(name, wave), Path("mal/" + name + ".wav"));
    // On a broken Ogg libsndfile forgets what libvorbis gave it; only of that the sanitizer shall not speak.
    const Outcome run =
        Run("echo leak:vorbis_info_init >leaks; export LSAN_OPTIONS=suppressions=leaks:print_suppressions=0; "
            "timeout 500 fatiar mal -o sai --sem-imagens --lista mlt --lista rpp");
    EXPECT_EQ(run.status, 1) << run.err;
    std::string line;
    for (std::istringstream lines(run.err); std::getline(lines, line);) EXPECT_EQ(line.find("fatiar: "), 0u) << line;
    const auto sliced = std::count(run.out.begin(), run.out.end(), '%');
    EXPECT_GT(sliced, 9 * seeds / 4);
    EXPECT_EQ(Run("ls -A sai | grep -c fatiado; ls -A sai | grep -c tmp").out, std::to_string(3 * sliced) + "\n0\n");
}
