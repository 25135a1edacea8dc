// Signs on every model headless and stores every output in the directory: save_everything with|without <directory>
// "with" has a QApplication, "without" has no application object of any kind.
#include "openpad.h"

#include <fstream>
#include <iostream>
#include <optional>

namespace {

void require(bool condition, const std::string &what)
{
    if (condition)
        return;
    std::cerr << what << " failed\n";
    std::exit(1);
}

void storeText(const std::string &path, const char *text)
{
    require(text != nullptr && *text != '\0', path);
    std::ofstream(path) << text;
}

void storeOutputs(const OpenPad &pad, const std::string &head)
{
    const std::pair<int, const char *> kTypes[] = {
        {ITI_BITMAP, ".bmp"}, {ITI_JPEG, ".jpg"}, {ITI_PNG, ".png"}, {ITI_PDF, ".pdf"}, {ITI_SVG, ".svg"}};
    for (const auto &[type, suffix] : kTypes) {
        std::wstring path(head.begin(), head.end());
        path += std::wstring(suffix, suffix + 4);
        require(pad->SaveDrawingImage(pad.type(), type, path.data(), IDLI_300DPI) == ARI_SUCCESS, head + suffix);
    }
    for (const int type : {EBITI_BITMAP, EBITI_JPEG, EBITI_PNG}) {
        char *text = pad->Base64Encode(pad.type(), type);
        storeText(head + "-" + std::to_string(type) + ".txt", text);
        pad->Base64EncodeFree(pad.type(), text);
    }
    char *svg = pad->GetSVGImageBase64Data(pad.type());
    storeText(head + "-svg.txt", svg);
    pad->FreeSVGImageBase64Data(pad.type(), svg);
}

void signAndStore(const Family &family, const std::string &directory)
{
    OpenPad pad({&family, true}, 420, 330);
    require(pad.isOpen(), family.prefix);
    pad->SetPenColor(pad.type(), 20, 40, 160);
    pad.driver.send(stroke(pad.type(), {{.1, .5, .1}, {.2, .2, .3}, {.3, .7, .2}, {.45, .3, .4}, {.9, .4, .5}}));
    pad.driver.send(stroke(pad.type(), {{.5, .8, .6}, {.5, .8, .6}}));
    storeOutputs(pad, directory + "/" + family.prefix + "whole");
    require(pad->SetSaveClipImageMargin(pad.type(), true, 4, 3) == ARI_SUCCESS, "SetSaveClipImageMargin");
    storeOutputs(pad, directory + "/" + family.prefix + "clipped");
}

} // namespace

int main(int argc, char **argv)
{
    require(argc == 3, "usage: save_everything with|without <directory>");
    std::optional<QApplication> application;
    if (argv[1] == std::string("with"))
        application.emplace(argc, argv);
    require((QCoreApplication::instance() != nullptr) == application.has_value(), "application object");
    for (const Family &family : kFamilies)
        signAndStore(family, argv[2]);
    return 0;
}
