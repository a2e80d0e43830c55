#pragma once

#include "core/settings.h"

#include <cstdint>
#include <string>
#include <vector>

/// The values that windows hand to each other. Only windows and the start-up
/// read them; logic functions take what they need as arguments.
namespace zolt::shared {

/// The settings of this run, read at the start and written when the frame closes.
extern Settings settings;
/// The folder of the settings and of the files that come with the program,
/// without a trailing separator, as file system bytes.
extern std::string programFolder;
/// The whole command line: one file name, quoted or not.
extern std::string commandLine;

/// Which document window was created last: 1 text, 2 graphic.
extern std::int16_t EdiçãoActiva;

/// The document as last saved.
extern std::string TextoGuardado;
/// 1 after a Save As that left no file, 0 after one that did.
extern std::int16_t GuardarCancelado;
/// 1 lets the document window close without the question.
extern std::int16_t SemPerguntaDeSaída;
/// The active pane's SelStart where the user last placed the caret, by a click, by a key
/// or by opening a document: searches begin behind it.
extern std::int32_t PosiçãoCursor;
/// What the find window looked for last, and whether in the same case (1): it begins
/// with them when it opens again.
extern std::string lastSearch;
extern std::int16_t lastSearchMatchesCase;
/// The document named on the command line, between its reading and the panes.
extern std::string TextoDeArranque;

/// The letter of the style command under way.
extern std::string EstiloDeLetra;
/// The same in the graphical edition: the name of the style's font.
extern std::string FonteDeEstilo;
/// The text size that a command gives the graphical document, in points.
extern std::int16_t TamanhoDaLetra;
/// 1 partial, 2 total.
extern std::int16_t TipoDeOptimização;

/// The graphical document, or a part of it, that the source-code compiler takes, as RTF;
/// how far it is to optimise (1 not, 2 partially, 3 totally), and where the source code
/// goes.
extern std::string RtfACompilar;
extern std::int16_t TipoDeCompilação;
extern std::int16_t DestinoDaCompilação;
enum Destination : std::int16_t { ToWindow, ToHpFile, ToTextualEdition };
/// The compiled text on its way to the textual edition.
extern std::string TextoEnviado;

/// The text that a preview compiles.
extern std::string TextoPrevisualizar;
/// 1 folds the lines of the plain preview, 0 doesn't.
extern std::int16_t PrevisualizarComQuebras;
/// 1 once the Cancel button of a compiler was pressed.
extern std::int16_t CancelarOperação;
/// The compiled document's menu entries: how many, the line of each, from 1, and its
/// text. Entry 1 stands at index 0.
extern std::int32_t NúmeroDeEntradas;
extern std::vector<std::int32_t> LinhasDasEntradas;
extern std::vector<std::string> TextosDasEntradas;

/// The size in work in the image windows, in dots.
extern std::int16_t LarguraFigura;
extern std::int16_t AlturaFigura;
/// The kind of image conversion in force, 1 to 6, and the one before; 0 until a
/// first source was chosen.
extern std::int16_t TipoDeConversão;
extern std::int16_t TipoAnterior;
/// 1 ends the reading of a picture.
extern std::int16_t PararLeitura;

/// What the two kinds of document are called on the desktop.
extern std::string ExtensãoTexto;
extern std::string ExtensãoGráfico;
extern std::string IconeTexto;
extern std::string IconeGráfico;
extern std::string FormatoTexto;
extern std::string FormatoGráfico;
extern std::string CaminhoPrograma;

/// Puts every value back to what it is at the start of a run.
void reset();

} // namespace zolt::shared
