#include "tests/support/kept.h"

#include <cstdlib>
#include <sstream>
#include <utility>

#include "platform/pictures/png_file.h"
#include "tests/support/folders.h"

static const bool Gravando = std::getenv("QUILMO_WRITE_GOLDEN");

void ConfereGuardado(const std::string& arquivo, const std::string& achado) {
    const std::string caminho = SourceFolder() + '/' + arquivo;
    if (Gravando) GravarArquivo(caminho, achado);
    std::string linhaGuardada, linha;
    std::istringstream guardadas(LerArquivo(caminho)), achadas(achado);
    for (int numero = 1; guardadas || achadas; ++numero) {
        std::getline(guardadas, linhaGuardada);
        std::getline(achadas, linha);
        ASSERT_EQ(linha, linhaGuardada) << arquivo << ", line " << numero;
    }
}

driver::Picture ImagemDe(LICE_IBitmap& bm) {
    driver::Picture imagem = {bm.getWidth(), bm.getHeight(), {}};
    for (int y = 0; y < imagem.height; ++y)
        for (int x = 0; x < imagem.width; ++x)
            imagem.pixels.push_back(bm.getBits()[y * bm.getRowSpan() + x] & 0xFFFFFF);
    return imagem;
}

void ConfereImagem(const std::string& arquivo, const driver::Picture& achada) {
    const std::string caminho = SourceFolder() + '/' + arquivo;
    const PixelRows linhas = {achada.pixels.data(), achada.width, achada.height, achada.width};
    if (Gravando) WritePng(caminho + ".png", linhas);
    driver::Picture guardada;
    ASSERT_TRUE(ReadPng(caminho + ".png", &guardada.width, &guardada.height, &guardada.pixels));
    if (achada.width == guardada.width && achada.pixels == guardada.pixels) return;
    WritePng(caminho + "-achada.png", linhas);
    ASSERT_EQ(std::pair(achada.width, achada.height), std::pair(guardada.width, guardada.height)) << arquivo;
    size_t em = 0;
    while (achada.pixels[em] == guardada.pixels[em]) ++em;
    ADD_FAILURE() << std::hex << arquivo << ": " << achada.pixels[em] << " in the place of " << guardada.pixels[em]
                  << std::dec << ", first at x " << em % achada.width << ", y " << em / achada.width;
}
