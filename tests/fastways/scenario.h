/// @file
/// A random session with a pad, the same for the same seed, and a line for everything that it brought out.
#ifndef SCENARIO_H
#define SCENARIO_H

#include "../../fuzz/openpad.h"

#include <QByteArray>
#include <QTemporaryDir>

#include <random>
#include <string>
#include <vector>

class Scenario
{
public:
    explicit Scenario(unsigned seed);

    /// Opens a pad, signs, asks for outputs, closes. Each output is a line "seed step name length digest", times of the
    /// clock left out.
    std::vector<std::string> run();

private:
    int upTo(int most);
    bool oneIn(int count) { return upTo(count - 1) == 0; }
    void tell(const char *name, const QByteArray &bytes);
    static void takePush(char *text);
    void tellText(const char *name, char *text, void (*release)(int, char *));

    void settings();
    void sign();
    void stroke();
    void hostEvent();
    void fingerprint();
    void place();
    void texts();
    void files();
    void record();
    void decoded();
    void ofTheModel();

    std::mt19937 m_random;
    const unsigned m_seed;
    int m_step = 0;
    int m_score = 0;
    bool m_isPushing = false;
    fuzz::FuzzedPad *m_pad = nullptr;
    QTemporaryDir m_directory;
    std::vector<std::string> m_lines;
};

#endif
