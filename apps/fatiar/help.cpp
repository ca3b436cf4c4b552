#include "apps/fatiar/options.h"

// No line is wider than 80 columns.
const char HelpText[] = R"(Uso: fatiar ENTRADA... [opcoes]

Encontra o silencio de cada gravacao, corta-o fora e encosta os pedacos que
sobram. Uma ENTRADA e um arquivo, uma pasta (as gravacoes dela, sem as das
subpastas) ou - (a entrada padrao). Sem -o o programa so mostra o que achou.

O corte
  --piso DB        abaixo deste nivel e silencio, de -200 a 0 (padrao: -37)
  --bloco MS       so pausas desta duracao ou mais cortam, de 1 a 600000
                   (padrao: 55)
  --margem MS[,MS] deixa esse tanto de silencio antes e depois de cada pedaco
  --pausa MS       encurta cada pausa para essa duracao, em vez de tirar tudo
  --sem-fechar     deixa os pedacos onde estao, sem encostar e sem fades; o
                   audio gravado tem a duracao da entrada
  --juntas         as entradas sao microfones de uma so conversa: e silencio
                   onde todas calam, e elas continuam em sincronia

O que fica gravado
  -o PASTA         grava NOME-fatiado.wav (ou .flac) e as imagens antes.png e
                   depois.png (com varias entradas, NOME-antes.png...)
  -o ARQUIVO       de uma so entrada: o proprio arquivo, .wav ou .flac
  -o -             o audio sai na saida padrao; a tabela, na de erros
  --formato F      wav ou flac; sem esta opcao vale a terminacao de -o, e na
                   falta dela a da entrada: .flac da FLAC, o resto da WAV.
                   Os dois saem sempre com 24 bits, tambem se a entrada tem 16
  --sem-imagens    nao grava as imagens
  --sobrescrever   troca arquivos que ja existem; sem ela, sao recusados
  --csv, --json    mostra a tabela nesse formato; com -o, tambem a grava ao
                   lado do audio (as duas juntas so com -o)

Listas, para fazer o corte em outro programa
  --lista F[=ARQUIVO]  pode repetir; sem ARQUIVO, NOME-fatiado e a terminacao
                   do formato, na pasta de -o ou, sem ela, na atual:
                   rotulos   rotulos do Audacity (.txt)
                   ffconcat  lista do FFmpeg (.ffconcat)
                   mlt       Shotcut, Kdenlive e melt (.mlt)
                   edl       CMX 3600 (.edl; mais arquivos a cada 999 cortes)
                   rpp       projeto do REAPER (.rpp)
  --quadros Q      quadros por segundo de mlt e edl: 24, 25, 29.97 ou 30
                   (padrao: 25)
  --origem ARQUIVO o que as listas citam no lugar da entrada: o video de onde
                   veio o som

  -h, --ajuda      mostra este texto        --versao   mostra a versao

Le o que a libsndfile conhece (WAV, FLAC, AIFF, OGG, MP3...).
Saida: 0 se tudo correu bem; 1 se, de varias entradas, alguma nao pode ser
fatiada; 2 se nada pode ser feito. Uma linha diz o que houve.
)";
