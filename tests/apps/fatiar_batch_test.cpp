// Many recordings, and what a run leaves when something stands in its way.
#include <sys/resource.h>

#include <cstdlib>
#include <sstream>

#include "tests/apps/workshop.h"
#include "tests/support/folders.h"
#include "tests/support/pattern.h"

class FatiarMuitos : public Fatiar {
  protected:
    FatiarMuitos() { Write("fala.wav", Wav16, 8000, 1, Recording(8000, 1, {{0.1, 0.3}, {0.6, 0.3}}, 1)); }
    std::string Listed(const std::string& what) { return Run("ls -d " + what + " | xargs").out; }
};

TEST_F(FatiarMuitos, UmaEntradaRuimNaoParaAsOutras) {
    Run("mkdir -p a/fundo vazia; for f in 1.wav 10.FLAC 3.wav fundo/4.wav; do cp fala.wav a/$f; done; "
        "echo nada | tee a/2.wav a/leia.txt a/.oculto.wav");
    const Outcome run = Run("fatiar --csv a vazia fala.wav fala.wav -o sai --sem-imagens");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, "fatiar: a pasta 'vazia' nao tem gravacoes\nfatiar: 'a/2.wav' nao e audio que se possa ler\n");
    EXPECT_EQ(Replaced(run.out, ",1,0,0.3,0.1\n.*,2,.*\n", " "),
              "arquivo,pedaco,posicao,duracao,origem\na/1.wav a/10.FLAC a/3.wav fala.wav fala.wav ");
    EXPECT_EQ(Listed("sai/*.wav sai/*.flac"),
              "sai/1-fatiado.wav sai/10-fatiado.flac sai/3-fatiado.wav sai/fala-2-fatiado.wav sai/fala-fatiado.wav\n");
    Good("fatiar fala.wav a/3.wav -o so");
    EXPECT_EQ(Listed("so/*"),
              "so/3-antes.png so/3-depois.png so/3-fatiado.wav so/fala-antes.png so/fala-depois.png "
              "so/fala-fatiado.wav\n");
}

TEST_F(FatiarMuitos, OQueJaExisteSoSeTrocaComOrdem) {
    for (const std::string taken : {"fala-fatiado.wav", "fala-fatiado.csv", "depois.png", "fala-fatiado.edl"}) {
        Run("rm -rf sai; mkdir sai; echo meu >sai/" + taken);
        const Outcome run = Run("fatiar fala.wav -o sai --csv --lista edl");
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.err, "fatiar: 'sai/" + taken + "' ja existe; --sobrescrever o troca\n");
        EXPECT_EQ(Listing(), "fala.wav sai sai/" + taken + ' ');
        Good("fatiar fala.wav -o sai --csv --lista edl --sobrescrever");
        EXPECT_NE(Text("sai/" + taken), "meu\n");
    }
    EXPECT_EQ(Run("fatiar fala.wav -o fala.wav --sobrescrever").status, 2);
}

// Whenever it comes, all is there or nothing is; and what waits for more input waits no longer.
TEST_F(FatiarMuitos, CtrlCNaoDeixaNadaPelaMetade) {
    Write("fala.wav", Wav16, 48000, 2, Recording(48000, 30, {{1, 10}, {12, 17}}));
    Run("mkdir temp");
    const std::string before = Listing();
    const std::string all = before + "x x/y x/y/antes.png x/y/depois.png x/y/fala-fatiado.csv x/y/fala-fatiado.flac ";
    for (const std::string wait : {"0.01", "0.05", "0.1", "0.2", "0.4"}) {
        const int status =
            Run("timeout --preserve-status -s INT " + wait + " fatiar fala.wav -o x/y --csv --formato flac >/dev/null")
                .status;
        EXPECT_EQ(Listing(), status == 0 ? all : before);
        EXPECT_TRUE(status == 0 || status == 130) << status;
        Run("rm -rf x");
    }
    const Outcome piped =
        Run("mkfifo cano; TMPDIR=temp fatiar - -o x <cano & exec 3>cano; "
            "head -c 9999 fala.wav >&3; until ls -l /proc/$!/fd 2>/dev/null | grep -q fatiar-; do sleep 0.01; done; "
            "kill -TERM $!; wait $!; echo $?; rm cano");
    EXPECT_EQ(piped.out + piped.err, "143\n");
    EXPECT_EQ(Listing(), before);
}

TEST_F(FatiarMuitos, PorCanosPassaOMesmoAudio) {
    Good("fatiar fala.wav -o fala.flac; fatiar fala.wav -o fora.wav");
    EXPECT_EQ(Run("cat fala.wav | fatiar - -o - | cmp - fora.wav").out, "");
    EXPECT_EQ(Run("fatiar - -o - --formato flac <fala.wav >veio.flac").err.find("entrada: 1.000 s, 8000 Hz"), 0u);
    EXPECT_EQ(Samples("veio.flac"), Samples("fala.flac"));
    Good("cat fala.wav | fatiar - -o sai --origem '/v/aula 1.mp4' --lista edl; fatiar - --lista rotulos <fala.wav");
    EXPECT_EQ(Listed("sai/*"), "sai/antes.png sai/aula 1-fatiado.edl sai/aula 1-fatiado.wav sai/depois.png\n");
    EXPECT_EQ(Text("entrada-fatiado.txt"), "0.100000\t0.397500\t1\n0.602500\t0.900000\t2\n");
    EXPECT_EQ(Run("fatiar fala.wav -o - >/dev/full").status, 2);
}

// Nothing of one recording is held while the next is sliced. MANY_RECORDINGS asks for more than here.
TEST_F(FatiarMuitos, MilGravacoesNaoPedemMaisMemoriaNemArquivosAbertos) {
    const char* const wanted = std::getenv("MANY_RECORDINGS");
    const std::string crowd = wanted ? wanted : "500";
    Run("for n in 12 " + crowd + "; do mkdir $n; for i in $(seq $n); do ln fala.wav $n/$i.wav; done; done");
    const auto kilobytes = [this](const std::string& folder) {
        const std::string told = Good("ulimit -n 24; fatiar " + folder + " -o sai --sem-imagens --sobrescrever").out;
        EXPECT_EQ(std::count(told.begin(), told.end(), '%'), std::stoi(folder));
        rusage usage;
        getrusage(RUSAGE_CHILDREN, &usage);  // of the largest so far
        return usage.ru_maxrss;
    };
    [[maybe_unused]] const long few = kilobytes("12"), many = kilobytes(crowd);
#ifndef __SANITIZE_ADDRESS__  // which holds freed memory back
    EXPECT_LT(many, few + 4096);
#endif
}

TEST_F(FatiarMuitos, TitulosEDisposicaoDosCanaisFicam) {
    std::vector<int> map = {SF_CHANNEL_MAP_LEFT, SF_CHANNEL_MAP_RIGHT, SF_CHANNEL_MAP_REAR_LEFT,
                            SF_CHANNEL_MAP_REAR_RIGHT};
    info = {0, 8000, 4, SF_FORMAT_WAVEX | SF_FORMAT_PCM_16, 0, 0};
    SNDFILE* file = sf_open(Path("fala.wav").c_str(), SFM_WRITE, &info);
    sf_command(file, SFC_SET_CHANNEL_MAP_INFO, map.data(), 16);
    for (const int tag : {SF_STR_TITLE, SF_STR_ARTIST, SF_STR_COMMENT}) sf_set_string(file, tag, "Ção 1");
    sf_writef_double(file, Recording(8000, 1, {{0.1, 0.3}, {0.6, 0.3}}, 4).data(), 8000);
    sf_close(file);
    // Through FLAC, which tells the layout by the number of channels alone, and back.
    Good("fatiar fala.wav --sem-fechar -o dois.flac; fatiar dois.flac -o tres.wav");
    for (const char* name : {"dois.flac", "tres.wav"}) {
        file = sf_open(Path(name).c_str(), SFM_READ, &(info = {}));
        for (const int tag : {SF_STR_TITLE, SF_STR_ARTIST, SF_STR_COMMENT})
            EXPECT_STREQ(sf_get_string(file, tag), "Ção 1");
        std::vector<int> found(4);
        EXPECT_TRUE(!sf_command(file, SFC_GET_CHANNEL_MAP_INFO, found.data(), 16) || found == map) << name;
        sf_close(file);
    }
    EXPECT_EQ(info.format, SF_FORMAT_WAVEX | SF_FORMAT_PCM_24);
}

TEST_F(FatiarMuitos, OProgressoCabeNoTerminal) {
    if (Run("script -qec true /dev/null").status != 0) GTEST_SKIP() << "no pseudo-terminal on this machine";
    Write("fala.wav", Wav16, 48000, 2, Recording(48000, 60, {{1, 10}, {12, 47}}));
    std::string line;
    for (const std::string columns : {"40", "12"}) {
        const std::string shown = Good("script -qec 'stty cols " + columns +
                                       "; fatiar $(yes fala.wav | head -n 4) -o x --sobrescrever >/dev/null' /dev/null")
                                      .out;
        EXPECT_GT(std::count(shown.begin(), shown.end(), '%'), 0);
        for (std::istringstream lines(shown); std::getline(lines, line, '\r');)
            EXPECT_LT(line.substr(0, line.find('\033')).size(), std::stoul(columns)) << line;
    }
}

TEST_F(FatiarMuitos, AAjudaCabeEm80ColunasEEstaNoManual) {
    std::string line, word;
    const std::string help = Good("fatiar --ajuda").out;
    const std::string man = Run("sed 's/\\\\-/-/g' '" + SourceFolder() + "/docs/fatiar.1'").out;
    for (std::istringstream lines(help); std::getline(lines, line);) EXPECT_LE(line.size(), 80u) << line;
    for (std::istringstream words(help); words >> word;)
        EXPECT_TRUE(!word.starts_with("--") ||
                    man.find(word.substr(0, word.find_first_of("[,=;"))) != std::string::npos)
            << word << " is not in the manual page";
    EXPECT_EQ(Good("fatiar --versao").out.find("fatiar 1."), 0u);
}

TEST_F(FatiarMuitos, AInstalacaoFuncionaDepoisDeMovida) {
    Good("cmake --install '" + BuildFolder() + "' --prefix \"$PWD/aqui\" >/dev/null && mv aqui la");
    EXPECT_EQ(Good("env -i la/bin/fatiar fala.wav --csv").out, Good("fatiar fala.wav --csv").out);
    EXPECT_GT(Text("la/share/man/man1/fatiar.1").size(), 1000u);
}
