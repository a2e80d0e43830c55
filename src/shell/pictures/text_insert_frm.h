#pragma once

#include "shell/pictures/insert_frm.h"

#include <optional>

namespace zolt {

/// The insert windows of the text edition: its commands are out of reach while one
/// stands, and its document gets the picture as image text.
class TextInsertFrm : public InsertFrm {
    Q_OBJECT

public:
    using InsertFrm::InsertFrm;

public slots:
    /// Replaces the selection of the active pane by the image text, and stays.
    void insert();
    /// Ends the reading that is under way.
    void stop();
    void RefreshPicture() override;

protected:
    void beginning() override;
    void closing() override;

    enum Stopping { CantStop, CanStop };
    /// Adds Insert, Stop where there is something to stop, and Close.
    void addInsertButtons(Stopping stopping);

    /// The dots of the picture, as they are read into image text.
    virtual DotSurface dots() const { return m_picture.dots; }
    /// The image text to insert; nothing if the reading was stopped.
    virtual std::optional<std::string> imageText();
};

} // namespace zolt
