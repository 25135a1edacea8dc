/// @file
/// A fingerprint instance without driver and display thread. The test itself calls the thread's passes.
#ifndef HANDRUNPAD_H
#define HANDRUNPAD_H

#include "fingerprints.h"

#include "cs310xobj_showfpimageondevicethread.h"
#include "cs310xsignobj.h"
#include "cs310xsignwidget.h"
#include "cs310xwidget_showfpimageondevicethread.h"
#include "openinstance.h"

/// Records what is sent to the pad's screen, with a function in place of the driver's.
struct PadScreen
{
    struct Transfer
    {
        std::vector<unsigned char> bytes;
        const unsigned char *image;
        int length;
        int width;
        int height;
        const bool *abort;
    };
    static inline std::vector<Transfer> transfers;
    static inline int result = 0;

    static int show(unsigned char *image, int length, int width, int height, bool *abort)
    {
        transfers.push_back({{image, image + length}, image, length, width, height, abort});
        return result;
    }
};

template <class Pad>
class HandRunPad
{
public:
    static constexpr bool kIsWidget = std::is_base_of_v<QWidget, Pad>;

    HandRunPad(int width, int height)
    {
        if constexpr (kIsWidget) {
            m_pad = new Pad(&m_window);
            m_window.resize(width, height);
            m_pad->resize(width, height);
            m_window.show();
            settle();
        } else {
            m_pad = new Pad(width, height);
        }
        m_pad->stopDisplayThread({"HandRunPad::", "HandRunPad()"});
        m_pad->m_bGoToShutDown = false;
        m_pad->m_bDeviceConnected = true;
        m_pad->m_pfn_KVSPDAPI_ShowFPImageOnDevice = PadScreen::show;
        PadScreen::transfers.clear();
        PadScreen::result = 0;
    }
    ~HandRunPad()
    {
        m_pad->Shutdown();
        delete m_pad;
    }
    HandRunPad(const HandRunPad &) = delete;
    HandRunPad &operator=(const HandRunPad &) = delete;

    Pad *operator->() const { return m_pad; }
    Pad &operator*() const { return *m_pad; }

    void takeIn(Grey image, int score, int length = kGreyWidth * kGreyHeight)
    {
        m_pad->RxS310XSignPadFPRawData(image.data(), length, score);
    }

    /// One pass of the display thread.
    void pass()
    {
        m_pad->CheckIfAnyNewFPImageRawDataOnDeviceAvailable();
        m_pad->ProcessShowFPImgaeRawDataOnDevice();
    }

    std::vector<unsigned char> waitingPicture() const
    {
        const unsigned char *bytes = m_pad->m_ucShowFPImageRawDataOnDevice;
        return {bytes, bytes + kPictureBytes};
    }

    /// The layer before any fingerprint. A widget's has the sensor's size after the first resize.
    QSize layerSize() const { return kIsWidget ? QSize(kGreyWidth, kGreyHeight) : m_pad->m_canvas.size(); }

private:
    QWidget m_window;
    Pad *m_pad = nullptr;
};

/// Calls `look` with the open instance of a fingerprint pad as its own class.
template <class Look>
void lookIntoOpen(const PadCase &pad, Look look)
{
    if (pad.headless)
        look(openinstance::as<CS310XSignObj>());
    else
        look(openinstance::as<CS310XSignWidget>());
}

using FingerprintClasses = testing::Types<CS310XSignWidget, CS310XSignObj>;

struct FingerprintClassName
{
    template <class Pad>
    static std::string GetName(int)
    {
        return Pad::row.host == Host::Widget ? "CS310XSignWidget" : "CS310XSignObj";
    }
};

#endif
