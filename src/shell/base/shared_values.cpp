#include "shell/base/shared_values.h"

namespace zolt::shared {

Settings settings;
std::string programFolder;
std::string commandLine;
std::int16_t EdiçãoActiva = 0;
std::string TextoGuardado;
std::int16_t GuardarCancelado = 0;
std::int16_t SemPerguntaDeSaída = 0;
std::int32_t PosiçãoCursor = 0;
std::string lastSearch;
std::int16_t lastSearchMatchesCase = 0;
std::string TextoDeArranque;
std::string EstiloDeLetra;
std::string FonteDeEstilo;
std::int16_t TamanhoDaLetra = 0;
std::int16_t TipoDeOptimização = 0;
std::string RtfACompilar;
std::int16_t TipoDeCompilação = 0;
std::int16_t DestinoDaCompilação = 0;
std::string TextoEnviado;
std::string TextoPrevisualizar;
std::int16_t PrevisualizarComQuebras = 0;
std::int16_t CancelarOperação = 0;
std::int32_t NúmeroDeEntradas = 0;
std::vector<std::int32_t> LinhasDasEntradas;
std::vector<std::string> TextosDasEntradas;
std::int16_t LarguraFigura = 0;
std::int16_t AlturaFigura = 0;
std::int16_t TipoDeConversão = 0;
std::int16_t TipoAnterior = 0;
std::int16_t PararLeitura = 0;
std::string ExtensãoTexto;
std::string ExtensãoGráfico;
std::string IconeTexto;
std::string IconeGráfico;
std::string FormatoTexto;
std::string FormatoGráfico;
std::string CaminhoPrograma;

void reset() {
    settings = {};
    for (std::string *text :
         {&programFolder, &commandLine, &TextoGuardado, &lastSearch, &TextoDeArranque, &EstiloDeLetra,
          &FonteDeEstilo, &RtfACompilar, &TextoEnviado, &TextoPrevisualizar, &ExtensãoTexto, &ExtensãoGráfico,
          &IconeTexto, &IconeGráfico, &FormatoTexto, &FormatoGráfico, &CaminhoPrograma})
        text->clear();
    for (std::int16_t *number :
         {&EdiçãoActiva, &GuardarCancelado, &SemPerguntaDeSaída, &lastSearchMatchesCase, &TamanhoDaLetra,
          &TipoDeCompilação, &DestinoDaCompilação, &TipoDeOptimização, &PrevisualizarComQuebras,
          &CancelarOperação, &LarguraFigura, &AlturaFigura, &TipoDeConversão, &TipoAnterior, &PararLeitura})
        *number = 0;
    PosiçãoCursor = 0;
    NúmeroDeEntradas = 0;
    LinhasDasEntradas.clear();
    TextosDasEntradas.clear();
}

} // namespace zolt::shared
