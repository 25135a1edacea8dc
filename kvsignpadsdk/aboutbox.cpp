#include "aboutbox.h"

#include "widgetthread.h"

#include <QMessageBox>

#include <cstring>

namespace aboutbox {

namespace {

#define KV_ABOUT_PRODUCT "KVSignPad SDK on Linux OS"
#define KV_ABOUT_VERSION "Version : 1.0.5.1"
#define KV_ABOUT_MAKER "Copyright (C) 2024 Korvane"

constexpr char kText[] = "About\n\n" KV_ABOUT_PRODUCT "\n" KV_ABOUT_VERSION "\n" KV_ABOUT_MAKER;
constexpr char kMessage[] = "<p align='center'>" KV_ABOUT_PRODUCT "<br>" KV_ABOUT_VERSION "<br>" KV_ABOUT_MAKER "</p>";

static_assert(sizeof kText <= 128, "callers are promised that 128 bytes are enough");

} // namespace

void show(QWidget *pParent)
{
    if (widgetthread::canHaveWidgets())
        QMessageBox::about(pParent, QStringLiteral("About"), QString::fromLatin1(kMessage));
}

void writeText(char *pOutput)
{
    std::memcpy(pOutput, kText, sizeof kText);
}

} // namespace aboutbox
