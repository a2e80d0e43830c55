#include "shell/base/status_line.h"

#include "core/file.h"
#include "platform/desktop.h"
#include "shell/base/document_in_use.h"

namespace zolt {

void sayInStatusBar(const QString &message) {
    if (DocumentInUse *document = documentInUse())
        document->say(message);
}

bool savedOrSaid(const std::string &path, const std::string &reason) {
    if (reason.empty())
        return true;
    sayInStatusBar(QStringLiteral("%1 wasn't saved: %2")
                       .arg(fromFileName(titleOf(path)), QString::fromLocal8Bit(reason.c_str())));
    return false;
}

} // namespace zolt
