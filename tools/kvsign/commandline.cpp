#include "commandline.h"

#include "failure.h"
#include "modelnames.h"

#include <algorithm>

namespace {

QString withModels(const char *text, const char *between)
{
    return QString(text).replace("@MODELS@", QString::fromStdString(modelNames(between, between)));
}

QCommandLineOption parserOption(const Option &row)
{
    QString text = withModels(row.text, ", ");
    if (row.preset != nullptr)
        text += QString(" Default: %1.").arg(row.preset);
    QStringList names = namesOf(row);
    std::reverse(names.begin(), names.end()); // help texts show the short name first
    QCommandLineOption option(names, text, row.value);
    if (row.preset != nullptr)
        option.setDefaultValue(row.preset);
    return option;
}

QString longName(const Option &option)
{
    return "--" + namesOf(option).first();
}

} // namespace

QStringList namesOf(const Option &option)
{
    return QString(option.names).split(' ');
}

QStringList choicesOf(const Option &option)
{
    return withModels(option.choices, " ").split(' ');
}

Arguments::Arguments(const Subcommand &subcommand, const QStringList &words)
    : m_subcommand(subcommand)
{
    m_parser.setApplicationDescription(subcommand.summary);
    m_parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsOptions);
    for (const Option &option : subcommand.options)
        m_parser.addOption(parserOption(option));
    m_parser.addOption(parserOption(kHelpOption));
    for (const Positional &positional : subcommand.positionals) {
        QString syntax = positional.syntax;
        if (positional.most > 1)
            syntax += "...";
        m_parser.addPositionalArgument(positional.syntax, positional.text, syntax);
    }
    m_understood = m_parser.parse(words);
}

void Arguments::check() const
{
    if (!m_understood)
        throw misused(m_parser.errorText());
    for (const Option &option : m_subcommand.options) {
        if (option.value != nullptr && isSet(option) && value(option).isEmpty())
            throw misused(QString("%1 takes a value, not nothing").arg(longName(option)));
    }
    if (positionals().contains(QString()))
        throw misused("an empty argument names no file");
    int least = 0, most = 0;
    for (const Positional &positional : m_subcommand.positionals) {
        if (positionals().size() < least + positional.least)
            throw misused(QString("%1 is missing").arg(positional.syntax));
        least += positional.least;
        most += positional.most;
    }
    if (positionals().size() > most)
        throw misused(QString("\"%1\" is more than it takes").arg(positionals().at(most)));
}

bool Arguments::isSet(const Option &option) const
{
    return m_parser.isSet(namesOf(option).first());
}

void Arguments::refuseIdle(Rows<Option> options, const char *because) const
{
    for (const Option &option : options) {
        if (isSet(option))
            throw misused(QString("--%1 does nothing %2").arg(namesOf(option).first(), because));
    }
}

QString Arguments::value(const Option &option) const
{
    return m_parser.value(namesOf(option).first());
}

int Arguments::wholeNumber(const Option &option, int least, int most) const
{
    bool isNumber = false;
    const int number = value(option).toInt(&isNumber);
    if (!isNumber || number < least || number > most)
        throw misused(QString("%1 takes a whole number from %2 to %3, not \"%4\"")
                          .arg(longName(option))
                          .arg(least)
                          .arg(most)
                          .arg(value(option)));
    return number;
}

double Arguments::number(const Option &option, double least, double most) const
{
    bool isNumber = false;
    const double number = value(option).toDouble(&isNumber);
    if (!isNumber || !(number >= least && number <= most))
        throw misused(QString("%1 takes a number from %2 to %3, not \"%4\"")
                          .arg(longName(option))
                          .arg(least)
                          .arg(most)
                          .arg(value(option)));
    return number;
}

QString Arguments::choice(const Option &option) const
{
    const QStringList choices = choicesOf(option);
    for (const QString &choice : choices) {
        if (choice.compare(value(option), Qt::CaseInsensitive) == 0)
            return choice;
    }
    throw misused(QString("%1 takes one of %2, not \"%3\"").arg(longName(option), choices.join(", "), value(option)));
}
