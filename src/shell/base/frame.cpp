#include "shell/base/frame.h"

namespace zolt {

namespace {

Frame *theFrame = nullptr;

} // namespace

Frame *mainFrame() {
    return theFrame;
}

void setMainFrame(Frame *frame) {
    theFrame = frame;
}

QWidget *frameWindow() {
    return theFrame ? &theFrame->window() : nullptr;
}

} // namespace zolt
