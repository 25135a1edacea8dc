// kvsign completion: the script with which bash completes kvsign's command line, from the tables of options.
#include "exitcodes.h"
#include "subcommands.h"
#include "terminal.h"

namespace {

constexpr char kBegin[] = R"(# bash completion for kvsign
_kvsign()
{
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    COMPREPLY=()
    if [[ $COMP_CWORD -eq 1 ]]; then
        mapfile -t COMPREPLY < <(compgen -W "@SUBCOMMANDS@ --help --version" -- "$current")
        return
    fi
    local options=
    case ${COMP_WORDS[1]} in
)";

constexpr char kEnd[] = R"(        *) return ;;
    esac
    if [[ $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
    else
        compopt -o filenames
        mapfile -t COMPREPLY < <(compgen -f -- "$current")
    fi
}
complete -F _kvsign kvsign
)";

QStringList dashed(const Option &option)
{
    QStringList names;
    for (const QString &name : namesOf(option))
        names += (name.size() == 1 ? "-" : "--") + name;
    return names;
}

/// How bash completes the value of an option.
QString valueCase(const Option &option)
{
    QString reply = "return ;;\n";
    if (option.choices == kDirectories)
        reply = "compopt -o filenames; mapfile -t COMPREPLY < <(compgen -d -- \"$current\"); return ;;\n";
    else if (option.choices == nullptr && QString(option.value) == "FILE")
        reply = "compopt -o filenames; mapfile -t COMPREPLY < <(compgen -f -- \"$current\"); return ;;\n";
    else if (option.choices != nullptr)
        reply = QString("mapfile -t COMPREPLY < <(compgen -W \"%1\" -- \"$current\"); return ;;\n")
                    .arg(choicesOf(option).join(' '));
    return QString("                %1) %2").arg(dashed(option).join(" | "), reply);
}

QString caseOf(const Subcommand &subcommand)
{
    QStringList names = dashed(kHelpOption);
    QString values;
    for (const Option &option : subcommand.options) {
        names += dashed(option);
        if (option.value != nullptr)
            values += valueCase(option);
    }
    QString text = QString("        %1)\n            options=\"%2\"\n").arg(subcommand.name, names.join(' '));
    if (!values.isEmpty())
        text += "            case $previous in\n" + values + "            esac\n";
    return text + "            ;;\n";
}

int runCompletion(const Arguments &)
{
    QStringList names;
    QString cases;
    for (const Subcommand *subcommand : kSubcommands) {
        names += subcommand->name;
        cases += caseOf(*subcommand);
    }
    const QString text = QString(kBegin).replace("@SUBCOMMANDS@", names.join(' ')) + cases + kEnd;
    say(text.trimmed());
    return kDone;
}

} // namespace

const Subcommand kCompletionSubcommand{
    "completion", "Print the script with which bash completes this command.", {}, {}, runCompletion, nullptr};
