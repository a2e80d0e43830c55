#pragma once

#include "platform/common_dialog.h"

#include <QWidget>
#include <array>

namespace zolt {

/// The hidden holder of the common dialogs, one for each client, so that each
/// remembers its own file name.
class DialogFrm : public QWidget {
    Q_OBJECT

public:
    explicit DialogFrm(QWidget *owner);

    /// The dialogs by number, from 1.
    enum Client {
        Document = 1,
        Symbols,
        ImageConversion,
        Pdf,
        HpFile,
        InsertZoltImage,
        InsertGrob,
        InsertPicture,
        ColourAndFont,
        NormalPreview,
        GraphPreview,
        Options
    };
    CommonDialog &dialog(Client client) { return *m_dialogs[static_cast<std::size_t>(client - 1)]; }

private:
    std::array<CommonDialog *, 12> m_dialogs;
};

/// The dialog of a client, of the one holder.
CommonDialog &commonDialog(DialogFrm::Client client);

} // namespace zolt
