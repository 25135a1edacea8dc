/// @file
/// The signature pad as a C++ class: header only, over the functions of kvsignpadsdk_global.h, which stay in reach.
///
///     kv::Pad pad(kv::Model::S300, kv::Size{800, 452});
///     if (pad.wait(std::chrono::minutes(1)) == kv::Tap::Confirm)
///         pad.save("signature.pdf");
///
/// One pad is open at a time in a process. It is opened, used and closed on one thread. What goes wrong is a
/// kv::PadError, a std::system_error whose code() is a kv::Errc; the functions that may fail in everyday use also take
/// a std::error_code instead. An argument that makes no sense is a std::invalid_argument.
#ifndef KVSIGNPADSDK_SIGNPAD_HPP
#define KVSIGNPADSDK_SIGNPAD_HPP

#include "signpaddetail.hpp"
#include "signpadtable.hpp"
#include "signpadtypes.hpp"
#include "signpadversion.hpp"

#include <chrono>
#include <cstring>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace kv {

class Pad
{
public:
    /// Opens a pad. The driver is loaded from its folder, or from the working directory when that is empty; the
    /// process's working directory is the folder meanwhile, and is put back.
    Pad(Model model, Size size, const std::filesystem::path &driver = {})
        : m_family(&familyOf(model))
    {
        detail::check(size.width > 0 && size.height > 0, "a canvas has at least one pixel");
        detail::checkVersion();
        if (detail::Receiver::instance().open())
            throw PadError(Errc::AlreadyOpen);
        if (!initialise(size, driver))
            throw PadError(detail::whyNot(driver));
        m_open = true;
        detail::Receiver::instance().begin(m_family->UnInitialDevice, m_family->type);
        m_family->SignPadEventCallback(m_family->type, &detail::onEvent);
    }

    /// Like the constructor, but returns nothing and sets the error where that would throw a PadError.
    static std::optional<Pad> open(
        Model model, Size size, std::error_code &error, const std::filesystem::path &driver = {})
    {
        error.clear();
        try {
            return std::optional<Pad>(std::in_place, model, size, driver);
        } catch (const PadError &failure) {
            error = failure.code();
            return std::nullopt;
        }
    }

    Pad(Pad &&other) noexcept
        : m_family(other.m_family)
        , m_open(std::exchange(other.m_open, false))
    {
    }
    Pad &operator=(Pad &&) = delete;
    ~Pad() { close(); }

    /// Closes the pad. Ink that was not taken is lost. Closing twice does nothing. Do not call it from inside a
    /// receiver of live images.
    void close() noexcept
    {
        if (std::exchange(m_open, false)) {
            m_family->UnInitialDevice(m_family->type);
            detail::Receiver::instance().end();
        }
    }

    bool isOpen() const noexcept { return m_open; }

    // --- The pen ---

    /// 1 to 10; a new pad has 3. Counts for the next strokes.
    void setPenWidth(int level)
    {
        detail::check(level >= 1 && level <= 10, "a pen's width is 1 to 10");
        command(m_family->SetPenWidth, level);
    }

    /// 0 to 255 each; a new pad's pen is black. Counts for the next strokes.
    void setPenColor(Color color)
    {
        for (const int part : {color.red, color.green, color.blue})
            detail::check(part >= 0 && part <= 255, "a colour's parts are 0 to 255");
        command(m_family->SetPenColor, color.red, color.green, color.blue);
    }

    /// Whether the width of the next strokes follows the pressure. A new pad's does.
    void setPenPressure(bool on) { command(m_family->SetPenStyle, on); }

    /// Empties the canvas, the ink and the pad's own screen, and ends clip().
    void clear() { command(m_family->Clear); }

    /// Models with a screen. Switching it off empties the canvas too, but keeps the ink.
    void setScreen(bool on) { command(m_family->OpenLCD, on); }

    /// Models with a screen.
    void showVersion(bool on) { command(m_family->DisplayHWVersion, on); }

    // --- Taps ---

    /// The next tap on confirm or cancel; nothing when the time is over. Throws Errc::PadLost soon after the pad was
    /// unplugged (the ink so far can still be taken), and what a receiver of live images has thrown.
    std::optional<Tap> wait(std::chrono::milliseconds timeout)
    {
        std::error_code error;
        const std::optional<Tap> tap = wait(timeout, error);
        if (error)
            throw PadError(static_cast<Errc>(error.value()));
        return tap;
    }

    std::optional<Tap> wait(std::chrono::milliseconds timeout, std::error_code &error)
    {
        // A pad counts as lost when it fails to answer twice in a row: one failure may be a busy line.
        constexpr std::chrono::milliseconds kAskEvery(500);
        checkOpen();
        error.clear();
        // Adding milliseconds::max() to the clock would overflow; a century is as good.
        const auto most = std::min<std::chrono::milliseconds>(timeout, std::chrono::hours(24 * 36500));
        const auto end = std::chrono::steady_clock::now() + most;
        for (int failures = 0;;) {
            const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
            const std::optional<Tap> tap = detail::Receiver::instance().next(std::min(left, kAskEvery));
            if (tap || std::chrono::steady_clock::now() >= end)
                return tap;
            failures = isConnected() ? 0 : failures + 1;
            if (failures == 2) {
                error = make_error_code(Errc::PadLost);
                return std::nullopt;
            }
        }
    }

    // --- What it is ---

    std::string padId() const { return text(m_family->GetHWPadID); }
    /// Models with a screen.
    std::string penId() const { return text(m_family->GetHWPenID); }
    std::string version() const { return text(m_family->GetHWVersion); }

    bool isConnected() const
    {
        checkOpen();
        char buffer[256];
        return m_family->GetHWVersion(m_family->type, buffer, sizeof buffer) == ARI_SUCCESS;
    }

    /// The largest pressure that the pad reports.
    int maxPressure() const { return item<int>(DIID_GET_PRESSURE); }
    /// The writing area, in raw units.
    Size area() const { return {item<_tagKVAXIS>(DIID_GET_AXIS_X).nAXMax, item<_tagKVAXIS>(DIID_GET_AXIS_Y).nAXMax}; }

    // --- The ink ---

    /// How many points are stored.
    int points() const
    {
        checkOpen();
        return std::max(0, m_family->GetTotalInkPointsNumber(m_family->type));
    }

    /// All points that are stored now; none when nothing was written.
    std::vector<Point> ink() const
    {
        const std::optional<Bytes> record = decoded(m_family->Base64Encode, m_family->Base64EncodeFree, EBITI_INK);
        std::vector<Point> all(record ? record->size() / sizeof(Point) : 0);
        if (!all.empty())
            std::memcpy(all.data(), record->data(), all.size() * sizeof(Point));
        return all;
    }

    // --- Pictures ---

    /// Cuts the next pictures to the ink with these margins in pixels. Two margins of 0 show the whole canvas again.
    void clip(int across, int down)
    {
        detail::check(across >= 0 && down >= 0, "a margin is 0 pixels or more");
        command(m_family->SetSaveClipImageMargin, true, across, down);
    }

    /// The signature. `transparent` counts for PNG: white becomes see-through.
    Bytes picture(ImageKind kind, bool transparent = true) const
    {
        return taken(
            decoded(m_family->Base64EncodeEx, m_family->Base64EncodeExFree, static_cast<int>(kind), transparent));
    }

    /// Drawn anew from the points. (The library also leaves it in /tmp/KVeSign.svg.)
    std::string svg() const
    {
        const Bytes document = taken(decoded(m_family->GetSVGImageBase64Data, m_family->FreeSVGImageBase64Data));
        return {document.begin(), document.end()};
    }

    /// Writes the signature at 150 or 300 dots per inch, in the format of the name's ending: .png .jpg .bmp .pdf .svg.
    /// When it fails, an earlier file stays as it was.
    void save(const std::filesystem::path &file, int dpi = 300) const
    {
        if (const std::error_code error = trySave(file, dpi))
            throw PadError(static_cast<Errc>(error.value()));
    }

    std::error_code trySave(const std::filesystem::path &file, int dpi = 300) const
    {
        detail::check(dpi == 150 || dpi == 300, "files have 150 or 300 dots per inch");
        const int type = detail::typeOf(file);
        checkOpen();
        const detail::FileState before(file);
        std::wstring path = detail::wide(file.native());
        const int level = dpi == 150 ? IDLI_150DPI : IDLI_300DPI;
        const int result = m_family->SaveDrawingImage(m_family->type, type, path.data(), level);
        if (result == ARI_SUCCESS && (type != ITI_SVG || before.isWholeSvgSince()))
            return {};
        return make_error_code(points() == 0 ? Errc::NoInk : Errc::NotSaved);
    }

    // --- Live images, office canvas (S210) ---

    /// Hands the whole signature to the receiver after every pen movement, as JPEG or PNG, as long as the pad is open
    /// (S210). It runs on the driver's thread, which waits for it: be quick, and call neither close nor wait. What it
    /// throws comes out of the next wait.
    void onLiveImage(ImageKind kind, std::function<void(const Bytes &)> receiver)
    {
        detail::check(kind != ImageKind::Bmp && receiver, "live images are PNG or JPEG, and have a receiver");
        require(m_family->SetRealTimeSignBase64DataCallback);
        detail::Receiver::instance().setLive(std::move(receiver));
        m_family->SetRealTimeSignBase64DataCallback(m_family->type, static_cast<int>(kind), &detail::onLiveImage);
    }

    /// The signature stretched to a size, as PNG with see-through white or JPEG (S210).
    Bytes office(Size size, ImageKind kind = ImageKind::Png) const
    {
        detail::check(size.width > 0 && size.height > 0, "an office canvas has at least one pixel");
        require(m_family->InitialWPSSignCanvas);
        m_family->InitialWPSSignCanvas(m_family->type, size.width, size.height);
        return taken(decoded(m_family->WPSBase64Encode, m_family->WPSBase64EncodeFree, static_cast<int>(kind)));
    }

    // --- Fingerprint (S310X) ---

    /// Gives the fingerprint a canvas of its own and a rectangle on it (S310X).
    void placeFingerprint(Rect place, Size canvas)
    {
        require(m_family->SetDisplayedFPImageAt);
        const int result = m_family->SetDisplayedFPImageAt(
            m_family->type, nullptr, canvas.width, canvas.height, place.left, place.top, place.width, place.height);
        detail::check(result != ARI_INVALID_PARAMETERS, "the fingerprint's place is not inside its canvas");
        verify(result);
    }

    /// The fingerprint's picture (S310X), with `only` cut to its rectangle. Errc::NotSupported before it has a place.
    Bytes fingerprint(ImageKind kind = ImageKind::Png, bool only = true) const
    {
        require(m_family->GetFPImageBase64Data);
        std::optional<Bytes> picture =
            decoded(m_family->GetFPImageBase64Data, m_family->FreeFPImageBase64Data, static_cast<int>(kind), only);
        if (!picture)
            throw PadError(Errc::NotSupported);
        return *std::move(picture);
    }

private:
    static const detail::Family &familyOf(Model model)
    {
        const auto index = static_cast<std::size_t>(model);
        detail::check(index < std::size(detail::kFamilies), "there is no such model");
        return detail::kFamilies[index];
    }

    bool initialise(Size size, const std::filesystem::path &driver) const
    {
        const detail::WorkingDirectory changed(driver);
        return m_family->InitialDevice(m_family->type, nullptr, 0, 0, size.width, size.height);
    }

    void checkOpen() const
    {
        if (!m_open)
            throw PadError(Errc::PadClosed);
    }

    template <class Function>
    void require(Function function) const
    {
        checkOpen();
        if (!function)
            throw PadError(Errc::NotSupported);
    }

    static void verify(int result)
    {
        if (result != ARI_SUCCESS)
            throw PadError(Errc::CommandFailed);
    }

    template <class Function, class... Values>
    void command(Function function, Values... values) const
    {
        require(function);
        verify(function(m_family->type, values...));
    }

    template <class Function>
    std::string text(Function function) const
    {
        require(function);
        char buffer[256] = {};
        verify(function(m_family->type, buffer, sizeof buffer - 1));
        return buffer;
    }

    template <class Value>
    Value item(int index) const
    {
        checkOpen();
        Value value{};
        verify(m_family->GetDeviceInfo(m_family->type, index, &value));
        return value;
    }

    /// A copy of a text of the library, which is given back at once; nothing when there is none.
    template <class Function, class Free, class... Values>
    std::optional<Bytes> decoded(Function function, Free giveBack, Values... values) const
    {
        require(function);
        const auto free = [&](char *text) { giveBack(m_family->type, text); };
        const std::unique_ptr<char, decltype(free)> text(function(m_family->type, values...), free);
        return text ? std::optional<Bytes>(detail::fromBase64(text.get())) : std::nullopt;
    }

    static Bytes taken(std::optional<Bytes> picture)
    {
        if (!picture)
            throw PadError(Errc::NoInk);
        if (picture->empty())
            throw PadError(Errc::NotSaved);
        return *std::move(picture);
    }

    const detail::Family *m_family;
    bool m_open = false;
};

} // namespace kv

#endif
