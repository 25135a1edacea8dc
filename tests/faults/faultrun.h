/// @file
/// A pad opened on a script of faults that has been played to its end; and the answers of exported functions as text,
/// so that all kinds of failure fit one table.
#ifndef FAULTRUN_H
#define FAULTRUN_H

#include "openpad.h"

#include <QTemporaryDir>

#include <string>

/// What a pad is opened on.
struct Setup
{
    const char *events; ///< null: no pad is opened
    const char *directory = "."; ///< where the driver is, relative to the simulator's directory
};

/// Opened in the constructor, closed in the destructor. No handle of the driver is held, so that each run may load
/// another one.
class FaultRun
{
public:
    FaultRun(const PadCase &pad, const Setup &setup);
    ~FaultRun();
    FaultRun(const FaultRun &) = delete;
    FaultRun &operator=(const FaultRun &) = delete;

    const Family *operator->() const { return m_pad.family; }
    bool isHeadless() const { return m_pad.headless; }

    /// Opens, with these events to be played by the driver of that directory.
    bool open(const Setup &setup);
    void close();

    /// A device type of another family.
    int wrong() const { return type == KVS300_DEVICE ? KVS210_DEVICE : KVS300_DEVICE; }

    QWidget *window() { return m_pad.headless ? nullptr : &m_window; }
    std::wstring path(const char *name) const;

    /// A text of the kind that the library hands out, given to a function that frees it. "kept" when it was not freed.
    template <class Free>
    std::string given(Free free)
    {
        char *text = new char[8]{"kept"};
        free(text);
        const std::string found = text;
        delete[] text;
        return found;
    }

    /// The same for null.
    template <class Free>
    std::string givenNull(Free free)
    {
        free(nullptr);
        return "nothing";
    }

    const int type;

private:
    PadCase m_pad;
    QWidget m_window;
    QTemporaryDir m_directory;
    bool m_open = false;
};

inline std::string told(int result)
{
    return std::to_string(result);
}
inline std::string told(bool result)
{
    return result ? "true" : "false";
}
inline std::string told(const std::string &result)
{
    return result;
}

/// Every text of the library is an array of its own.
inline std::string told(char *result)
{
    const std::string text = result == nullptr ? "null" : *result == '\0' ? "empty" : "text";
    delete[] result;
    return text;
}

/// Which pads a row of the table is for.
enum class Pads
{
    All,
    Screen, ///< S models
    S210,
    S210Widget,
    S210Headless,
    S310X,
    S310XWidget,
    S310XHeadless
};

bool isOneOf(const PadCase &pad, Pads pads);

/// One way into a documented failure.
struct Attempt
{
    const char *function; ///< without the family's prefix
    const char *failure; ///< as in kDocumented
    Pads pads;
    Setup setup;
    const char *result; ///< as told() says it
    std::string (*call)(FaultRun &run);
};

#define KV_ATTEMPT(function, failure, pads, setup, result, expression)                                                 \
    {                                                                                                                  \
#function, failure, Pads::pads, setup, result, [](FaultRun &run) -> std::string {                              \
            (void)run;                                                                                                 \
            return told(expression);                                                                                   \
        }       \
    }

// The tables: failures of calls that no pad can help, and failures that a pad causes or must stand ready for. The two
// that nearly every function has, a wrong device type and no pad open, come from exportedCalls() instead.
std::vector<Attempt> callFailures();
std::vector<Attempt> padFailures();

inline constexpr Setup kClosed{nullptr};
/// Nothing wrong, nothing written.
inline constexpr Setup kSilent{""};
/// Raw units of an S300, as in all these scripts.
inline constexpr Setup kStroke{"0 600 600 800 0\n5 1200 900 900 1\n10 1800 700 900 1\n15 1800 700 0 2\n"};

#endif
