// Draws the table of ./bench/run as a picture: cost by canvas size, for the library and for the plain way.
// It reads the table from standard input and writes the PNG that its argument names.
#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <array>
#include <cmath>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace {

const std::array<const char *, 3> kSizes{"400x200", "800x600", "1920x1080"};

struct Panel
{
    const char *work; ///< the name of the table's row, without the size
    const char *title;
};
const std::array<Panel, 4> kPanels{
    {{"packet/S300/headless", "pen packet"}, {"packet/S310X/fingerprint", "pen packet over a fingerprint"},
        {"push/PNG", "PNG push a packet"}, {"repaint", "repaint of the widget"}}};

using Costs = std::map<std::string, std::pair<double, double>>; // microseconds of the library and of the plain way

Costs readTable(std::istream &in)
{
    Costs costs;
    for (std::string line; std::getline(in, line);) {
        std::vector<std::string> cells;
        std::istringstream row(line);
        for (std::string cell; std::getline(row, cell, '|');)
            cells.push_back(cell.size() > 2 ? cell.substr(1, cell.size() - 2) : cell);
        if (cells.size() == 6 && cells[1].find('/') != std::string::npos && std::isdigit(cells[4][0]) != 0)
            costs[cells[1]] = {std::stod(cells[4]), std::stod(cells[5])};
    }
    return costs;
}

double height(double microseconds, double most)
{
    return microseconds <= 1 ? 2 : 150 * std::log10(microseconds) / std::log10(most);
}

void drawBar(QPainter &painter, QPointF foot, double microseconds, double most, const QColor &colour)
{
    const double tall = height(microseconds, most);
    painter.fillRect(QRectF(foot.x(), foot.y() - tall, 30, tall), colour);
    const QString label = microseconds < 10 ? QString::number(microseconds, 'f', 1)
        : microseconds < 10000              ? QString::number(std::lround(microseconds))
                                            : QString::number(std::lround(microseconds / 1000)) + "k";
    painter.drawText(QRectF(foot.x() - 15, foot.y() - tall - 18, 60, 16), Qt::AlignCenter, label);
}

void drawPanel(QPainter &painter, const QPointF &corner, const Panel &panel, const Costs &costs)
{
    double most = 10;
    for (const char *size : kSizes) {
        const auto found = costs.find(std::string(panel.work) + "/" + size);
        if (found != costs.end())
            most = std::max({most, found->second.first, found->second.second});
    }
    painter.drawText(QRectF(corner.x(), corner.y(), 330, 20), Qt::AlignLeft, panel.title);
    for (size_t i = 0; i < kSizes.size(); ++i) {
        const auto found = costs.find(std::string(panel.work) + "/" + kSizes[i]);
        const QPointF foot(corner.x() + 20 + 105.0 * static_cast<double>(i), corner.y() + 210);
        if (found != costs.end()) {
            drawBar(painter, foot, found->second.second, most, QColor(170, 170, 170));
            drawBar(painter, foot + QPointF(36, 0), found->second.first, most, QColor(30, 90, 180));
        }
        painter.drawText(QRectF(foot.x() - 17, foot.y() + 4, 100, 18), Qt::AlignCenter, kSizes[i]);
    }
}

} // namespace

int main(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    const Costs costs = readTable(std::cin);
    QImage image(720, 560, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.drawText(QRectF(20, 12, 680, 20), Qt::AlignLeft,
        "Microseconds by canvas size, logarithmic. Grey: the plain way. Blue: the library.");
    for (size_t i = 0; i < kPanels.size(); ++i) {
        const size_t row = i / 2, column = i % 2;
        drawPanel(painter, {20 + 350.0 * static_cast<double>(column), 44 + 255.0 * static_cast<double>(row)},
            kPanels[i], costs);
    }
    painter.end();
    if (argc != 2 || costs.empty() || !image.save(QString::fromLocal8Bit(argv[1]))) {
        std::cerr << "usage: bench_plot PICTURE.png < TABLE\n";
        return 1;
    }
    return 0;
}
