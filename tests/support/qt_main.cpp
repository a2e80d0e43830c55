#include "shell/start/start_up.h"

#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char **argv) {
    testing::InitGoogleTest(&argc, argv);
    zolt::prepareApplication();
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
