// The saving members as such: types that the exported functions never pass, and the log lines around a save.
#include "inkpicture.h"
#include "insidepads.h"
#include "logmessages.h"
#include "savedfiles.h"

namespace {

class SaveMembers : public testing::TestWithParam<PadCase>
{
};

INSTANTIATE_TEST_SUITE_P(AllPads, SaveMembers, testing::ValuesIn(allPads()), padCaseName);

TEST_P(SaveMembers, RefuseUnknownTypes)
{
    OpenPad pad(GetParam());
    pad.driver.send(stroke(pad.type(), {{0.2, 0.2, 0.4}, {0.7, 0.8, 0.4}}));
    const SavedFiles files;
    std::wstring path = files.path("a.png").toStdWString();
    withOpenInstance(GetParam(), [&](auto &instance) {
        for (const int type : {0, 4, 5, 6, 9, -1, 2147483647, -2147483647 - 1})
            EXPECT_EQ(instance.SaveDrawingImage(type, path.data(), 150), ARI_INK_EMPTY) << type;
        EXPECT_TRUE(files.names().empty());
        EXPECT_EQ(instance.SaveDrawingImage(ITI_PNG, path.data(), 96), ARI_SUCCESS);
    });
    // 96 / 0.0254 = 3779.5, cut.
    EXPECT_EQ(QImage(files.path("a.png")).dotsPerMeterX(), 3779);
}

TEST_P(SaveMembers, DrawEmptySvgForImagesWithoutSize)
{
    OpenPad pad(GetParam());
    pad.driver.send(stroke(pad.type(), {{0.2, 0.2, 0.4}, {0.7, 0.8, 0.4}}));
    const SavedFiles files;
    withOpenInstance(GetParam(), [&](auto &instance) {
        EXPECT_TRUE(instance.SaveDrawingImageAsSVGFile(QImage(), files.path("a.svg"), 150, QRect()));
        EXPECT_TRUE(instance.SaveDrawingImageAsPDFFile(QImage(), files.path("a.pdf"), 150));
        EXPECT_FALSE(instance.SaveDrawingImageAsPDFFile(QImage(), QString(), 150));
        EXPECT_TRUE(instance.SaveDrawingImageAsSVGFile(QImage(), QString(), 150, QRect()));
    });
    EXPECT_TRUE(files.bytes("a.pdf").startsWith("%PDF-"));
}

TEST_P(SaveMembers, LogTheirSteps)
{
    OpenPad pad(GetParam(), 100, 60);
    const SavedFiles files;
    std::wstring path = files.path("a.png").toStdWString();
    const std::string address =
        QString::asprintf("%x", static_cast<unsigned>(reinterpret_cast<quintptr>(path.data()))).toStdString();
    const std::string key = GetParam().className() + std::string("::SaveDrawingImage()");
    const auto enter = [&](int type, int dpi) {
        return "<%ld>-enter, nImageTypeID=" + std::to_string(type) + ", pImageFilePath=" + address
            + ", nDPI=" + std::to_string(dpi);
    };
    const auto logged = [&](int type, int level) {
        const LogTail log;
        {
            const LogOn logOn;
            pad->SaveDrawingImage(pad.type(), type, path.data(), level);
        }
        return messagesOf(log, key);
    };
    EXPECT_EQ(logged(ITI_PNG, 0), (Lines{enter(3, 150), "<%ld>-leave with nResult=-8"}));
    pad.driver.send(stroke(pad.type(), {{0.5, 0.5, 0.4}}));
    EXPECT_EQ(logged(ITI_PNG, 0), (Lines{enter(3, 150), "<%ld>-leave with nResult=0"}));
    EXPECT_EQ(pad->SetSaveClipImageMargin(pad.type(), true, 3, 4), 0);
    EXPECT_EQ(logged(ITI_BITMAP, 1),
        (Lines{enter(1, 300), "<%ld>-after call CheckSignImageBoundingBox(), l=99996, t=99995, r=2, b=3",
            "<%ld>-leave with nResult=-8"}));
}

} // namespace
