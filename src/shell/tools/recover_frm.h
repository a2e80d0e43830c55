#pragma once

#include "core/kept_documents.h"
#include "shell/base/tool_frm.h"

#include <vector>

class QCheckBox;
class QLabel;
class QListWidget;
class QPushButton;

namespace zolt {

/// Lists documents that can be given back, and lets the user have one, delete it, or leave
/// them for later.
class RecoverFrm : public ToolFrm {
    Q_OBJECT

public:
    explicit RecoverFrm(QWidget *owner);

    /// What a crash has left, or what was thrown away on purpose.
    enum What { LeftByCrash, ThrownAway };
    void list(What what, std::vector<KeptDocuments::Entry> entries);

public slots:
    /// Gives back the current document, and closes.
    void recover();
    void deleteCurrent();

signals:
    void chosen(const KeptDocuments::Entry &entry);
    /// The window closed, and nothing was chosen.
    void left();

protected:
    void closing() override;

private:
    void fill();
    void takeOption();
    void updateButtons();

    std::vector<KeptDocuments::Entry> m_entries;
    bool m_hasChosen = false;
    QLabel *Label1;
    QListWidget *List1;
    QCheckBox *Check1;
    QPushButton *Command1;
    QPushButton *Command2;
    QPushButton *Command3;
};

} // namespace zolt
