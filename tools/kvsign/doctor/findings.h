/// @file
/// The doctor's checks. Each adds its findings, with a cure where something is wrong.
#ifndef FINDINGS_H
#define FINDINGS_H

#include <QString>

#include <vector>

enum class Health
{
    Good,
    Weak, ///< works, but not all of it, or not for long
    Bad
};

struct Finding
{
    Health health;
    QString subject;
    QString what;
    QString cure; ///< empty when it is good
};

using Findings = std::vector<Finding>;

inline Finding good(const QString &subject, const QString &what)
{
    return {Health::Good, subject, what, {}};
}

inline Finding weak(const QString &subject, const QString &what, const QString &cure)
{
    return {Health::Weak, subject, what, cure};
}

inline Finding bad(const QString &subject, const QString &what, const QString &cure)
{
    return {Health::Bad, subject, what, cure};
}

/// Which library this process runs, and whether another one is installed beside it.
void lookAtLibrary(Findings &findings);

void lookAtQt(Findings &findings);
void lookAtImageFormats(Findings &findings);
void lookAtFonts(Findings &findings);
void lookAtDisplay(Findings &findings);
void lookAtPermissions(Findings &findings);

/// Returns whether the driver can be loaded. One that others may change is loaded only with allowsUnsafe.
bool lookAtDriver(Findings &findings, bool allowsUnsafe);

/// Opens the pad. Call it only when the driver can be loaded.
void lookAtPad(Findings &findings, const QString &model);

/// Returns whether texts can be drawn without a display.
bool canDrawOffscreen();

#endif
