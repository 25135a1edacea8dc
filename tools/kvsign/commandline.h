/// @file
/// Options and arguments as rows of a table. Parsing, help and shell completion are made from it.
#ifndef COMMANDLINE_H
#define COMMANDLINE_H

#include <QCommandLineParser>
#include <QString>
#include <QStringList>

#include <cstddef>

struct Option
{
    const char *names; ///< "model m": the long name first
    const char *value; ///< name of its value in the help; null for a switch
    const char *text; ///< for the help; @MODELS@ stands for the names of all models
    const char *preset; ///< its value when it is not given; null for none
    const char *choices; ///< for completion: words, @MODELS@ among them, or kDirectories; null for none
};

QStringList namesOf(const Option &option);
QStringList choicesOf(const Option &option);

inline constexpr const char *kDirectories = "/";

inline constexpr Option kHelpOption{"help h", nullptr, "Show this help.", nullptr, nullptr};
inline constexpr Option kJsonOption{"json j", nullptr, "Print the result as JSON.", nullptr, nullptr};

/// The rows of a static array.
template <class Row>
class Rows
{
public:
    constexpr Rows() = default;

    template <std::size_t count>
    constexpr Rows(const Row (&rows)[count])
        : m_begin(rows)
        , m_end(rows + count)
    {
    }

    constexpr const Row *begin() const { return m_begin; }
    constexpr const Row *end() const { return m_end; }

private:
    const Row *m_begin = nullptr;
    const Row *m_end = nullptr;
};

/// An argument that is no option. Only the last one may be repeated.
struct Positional
{
    const char *syntax; ///< "INPUT"
    const char *text;
    int least;
    int most;
};

class Arguments;

/// The application object that a subcommand needs: a plain one, one that can draw texts, or one that shows windows.
enum class ApplicationKind
{
    Plain,
    Drawing,
    Windows
};

struct Subcommand
{
    const char *name;
    const char *summary;
    Rows<Option> options;
    Rows<Positional> positionals;
    int (*run)(const Arguments &);
    ApplicationKind (*application)(const Arguments &); ///< null for a plain one
};

/// A parsed command line. Values that cannot be understood throw a Failure.
class Arguments
{
public:
    Arguments(const Subcommand &subcommand, const QStringList &words);

    /// Throws when an option is unknown or the number of arguments is wrong.
    void check() const;

    QString help() const { return m_parser.helpText(); }
    bool isSet(const Option &option) const;

    /// Throws when one of the options is given: the caller would wait for its effect in vain. `because` completes the
    /// message: without what, or beside what, the options do nothing.
    void refuseIdle(Rows<Option> options, const char *because) const;
    QString value(const Option &option) const;
    QStringList values(const Option &option) const { return m_parser.values(namesOf(option).first()); }
    int wholeNumber(const Option &option, int least, int most) const;
    double number(const Option &option, double least, double most) const;

    /// The option's value, spelt as in its choices; capitals do not matter.
    QString choice(const Option &option) const;
    QStringList positionals() const { return m_parser.positionalArguments(); }

private:
    const Subcommand &m_subcommand;
    QCommandLineParser m_parser;
    bool m_understood;
};

#endif
