#include "openpad.h"

#include "target.h"

#include <QCoreApplication>
#include <QEvent>

#include <cstdlib>
#include <dlfcn.h>

namespace fuzz {

namespace {

template <class Function>
void find(void *handle, Function &function, const char *name)
{
    function = reinterpret_cast<Function>(dlsym(handle, name));
    KV_PROMISE(function != nullptr);
}

std::unique_ptr<FuzzedPad> kept;

} // namespace

Driver::Driver()
{
    setenv("KVSIM_RECORDING", "none", 1);
    void *handle = dlopen("./libkvsignpaddrv.so", RTLD_NOW);
    if (handle == nullptr)
        promise(false, dlerror());
    find(handle, sendPackets, "KVSIM_SendPackets");
    find(handle, sendFingerprint, "KVSIM_SendFingerprint");
    find(handle, setReadingThreadPackets, "KVSIM_SetReadingThreadPackets");
    find(handle, setResult, "KVSIM_SetResult");
    find(handle, setText, "KVSIM_SetText");
    find(handle, setScreenDelay, "KVSIM_SetScreenDelay");
    find(handle, shownPictures, "KVSIM_ShownPictures");
    find(handle, reset, "KVSIM_Reset");
}

const Driver &Driver::instance()
{
    static const Driver driver;
    return driver;
}

FuzzedPad::FuzzedPad(const Family &family, bool headless, int width, int height)
    : m_family(family)
{
    needApplication();
    Driver::instance();
    if (!headless) {
        m_window = std::make_unique<QWidget>();
        m_window->resize(300, 200);
        m_window->show();
    }
    m_open = family.InitialDevice(type(), m_window.get(), 5, 5, width, height);
    settle();
}

FuzzedPad::~FuzzedPad()
{
    KV_PROMISE(m_family.UnInitialDevice(type()) == ARI_SUCCESS);
    settle();
}

QWidget *FuzzedPad::widget() const
{
    return m_window == nullptr ? nullptr : m_window->findChild<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
}

FuzzedPad &keptPad()
{
    if (kept == nullptr)
        kept = std::make_unique<FuzzedPad>(kS300Family, true, 20, 10);
    KV_PROMISE(kept->isOpen());
    return *kept;
}

void closeKeptPad()
{
    kept.reset();
}

void settle()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace fuzz
