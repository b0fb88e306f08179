// A statement of account on paper of letter size, drawn with Qt.
#include <stdexcept>

#include "paper/statement_form.h"

#ifdef CUVEXA_WITH_QT
#include <QBuffer>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <array>

#include "paper/qt_thread.h"
#endif

namespace cuvexa::paper {

#ifdef CUVEXA_WITH_QT

namespace {

constexpr double dots_per_mm = 300 / 25.4;
constexpr double page_width = 185.9, page_height = 249.4;  ///< inside of margins of 15 mm
constexpr double line_height = 4.6, footer_height = 6, chart_height = 40;

struct Paper_column {
    const char* heading;
    double width;
    std::string Statement_line::*text;
    bool to_the_right = false;
};

constexpr std::array<Paper_column, 8> paper_columns = {{
    {"Fecha", 17, &Statement_line::date},
    {"Movimiento", 24, &Statement_line::folio},
    {"Concepto", 27, &Statement_line::what},
    {"Documento", 37.9, &Statement_line::document},
    {"Abono", 20, &Statement_line::in, true},
    {"Cargo", 20, &Statement_line::out, true},
    {"Saldo", 20, &Statement_line::balance, true},
    {"En firme", 20, &Statement_line::firm, true},
}};

QString text_of(const std::string& text) {
    QString result = QString::fromStdString(text);
    for (QChar& c : result) {
        if (c.category() == QChar::Other_Control || c.category() == QChar::Other_Format) c = u' ';
    }
    return result;
}

/// Draws page after page; heights and places are in millimetres.
class Paper {
public:
    Paper(QPdfWriter& writer, const reports::Whole_statement& statement)
        : writer_(writer), painter_(&writer), statement_(statement), lines_(lines_of(statement)) {}

    bool is_active() const { return painter_.isActive(); }

    void draw(const Page_progress& progress) {
        draw_head();
        draw_chart(chart_of(statement_.daily, statement_.period));
        const std::size_t pages = count_of_pages();
        std::size_t page = 1;
        if (progress) progress(page, pages);
        draw_headings();
        for (const Statement_line& line : lines_) {
            if (y_ + line_height > page_height - footer_height) {
                draw_footer(page++, pages);
                if (progress) progress(page, pages);
                writer_.newPage();
                y_ = 0;
                draw_headings();
            }
            draw_line(line);
        }
        draw_footer(page, pages);
    }

private:
    static double dots(double mm) { return mm * dots_per_mm; }

    void use_font(double points, bool bold = false) {
        QFont font(QStringLiteral("DejaVu Sans"));
        // Without ligatures the text of the file can be searched.
        font.setStyleHint(QFont::SansSerif, QFont::PreferNoShaping);
        font.setPointSizeF(points);
        font.setBold(bold);
        painter_.setFont(font);
    }

    void write(double x, double width, const QString& text, bool to_the_right = false) {
        const QRectF place(dots(x), dots(y_), dots(width), dots(line_height));
        const QString fitting =
            QFontMetricsF(painter_.font(), &writer_).elidedText(text, Qt::ElideRight, place.width());
        painter_.drawText(place, static_cast<int>(Qt::AlignVCenter | (to_the_right ? Qt::AlignRight : Qt::AlignLeft)),
                          fitting);
    }

    void draw_rule() {
        painter_.setPen(QPen(Qt::gray, dots(0.1)));
        painter_.drawLine(QPointF(0, dots(y_)), QPointF(dots(page_width), dots(y_)));
        painter_.setPen(Qt::black);
    }

    void draw_head() {
        use_font(13, true);
        write(0, page_width, text_of("Estado de cuenta " + statement_.account));
        y_ += 7;
        use_font(9);
        for (const std::string& text :
             {statement_.company,
              written_account(statement_) + ", " + statement_.bank + ", número " + statement_.number,
              written_period(statement_.period)}) {
            write(0, page_width, text_of(text));
            y_ += line_height;
        }
        y_ += 2;
        draw_balance("Saldo inicial", statement_.movements.opening);
        draw_balance("Saldo final", statement_.movements.closing);
        y_ += 3;
    }

    void draw_balance(const char* title, const reports::Balance& balance) {
        write(0, page_width,
              text_of(std::string(title) + ": " + written_money(balance.total) + "   en firme: " +
                      written_money(balance.firm) + "   en tránsito: " + written_money(balance.total - balance.firm)));
        y_ += line_height;
    }

    void draw_chart(const Chart& chart) {
        if (chart.balance.empty()) return;
        painter_.setPen(QPen(Qt::gray, dots(0.1)));
        painter_.drawRect(QRectF(0, dots(y_), dots(page_width), dots(chart_height)));
        painter_.setPen(QPen(Qt::darkGray, dots(0.2), Qt::DashLine));
        painter_.drawPolyline(line_of(chart.firm));
        painter_.setPen(QPen(QColor(11, 83, 148), dots(0.3)));
        painter_.drawPolyline(line_of(chart.balance));
        painter_.setPen(Qt::black);
        y_ += chart_height;
        use_font(7);
        write(0, page_width,
              text_of("Saldo por día, de " + chart.first_day + " a " + chart.last_day + ", entre " +
                      written_money(chart.low) + " y " + written_money(chart.high) +
                      "; con línea de puntos lo que está en firme"));
        y_ += line_height + 2;
    }

    QPolygonF line_of(const std::vector<Chart::Point>& points) const {
        QPolygonF line;
        for (const Chart::Point& point : points) {
            line << QPointF(dots(point.x * page_width), dots(y_ + 1 + (1 - point.y) * (chart_height - 2)));
        }
        return line;
    }

    void draw_headings() {
        use_font(7.5, true);
        double x = 0;
        for (const Paper_column& column : paper_columns) {
            write(x, column.width - 1, text_of(column.heading), column.to_the_right);
            x += column.width;
        }
        y_ += line_height;
        draw_rule();
        use_font(7.5);
    }

    void draw_line(const Statement_line& line) {
        double x = 0;
        for (const Paper_column& column : paper_columns) {
            write(x, column.width - 1, text_of(line.*column.text), column.to_the_right);
            x += column.width;
        }
        y_ += line_height;
    }

    void draw_footer(std::size_t page, std::size_t pages) {
        y_ = page_height - footer_height + 1;
        draw_rule();
        use_font(7);
        write(0, page_width / 2, text_of("Estado de cuenta " + statement_.account + "   * En tránsito"));
        write(page_width / 2, page_width / 2,
              text_of("Página " + std::to_string(page) + " de " + std::to_string(pages)), true);
    }

    static std::size_t fitting_lines(double from) {
        std::size_t count = 0;
        for (double y = from + line_height; y + line_height <= page_height - footer_height; y += line_height) ++count;
        return count;
    }

    std::size_t count_of_pages() const {
        const std::size_t first = fitting_lines(y_), later = fitting_lines(0);
        return lines_.size() <= first ? 1 : 1 + (lines_.size() - first + later - 1) / later;
    }

    QPdfWriter& writer_;
    QPainter painter_;
    const reports::Whole_statement& statement_;
    std::vector<Statement_line> lines_;
    double y_ = 0;
};

QByteArray drawn(const reports::Whole_statement& statement, const Page_progress& progress) {
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    QPdfWriter writer(&bytes);
    writer.setPageSize(QPageSize(QPageSize::Letter));
    writer.setPageMargins(QMarginsF(15, 15, 15, 15), QPageLayout::Millimeter);
    writer.setResolution(300);
    writer.setTitle(text_of("Estado de cuenta " + statement.account));
    writer.setCreator(QStringLiteral("Cuvexa"));
    {
        Paper paper(writer, statement);
        if (!paper.is_active()) throw std::runtime_error("No se puede escribir el PDF");
        paper.draw(progress);
    }
    return bytes.data();
}

}  // namespace

bool writes_pdf() {
    return true;
}

std::string pdf_of(const reports::Whole_statement& statement, const Page_progress& progress) {
    QByteArray bytes;
    in_qt_thread([&] { bytes = drawn(statement, progress); });
    return bytes.toStdString();
}

void prepare_pdf() {
    in_qt_thread([] {});
}

#else

bool writes_pdf() {
    return false;
}

std::string pdf_of(const reports::Whole_statement&, const Page_progress&) {
    throw std::logic_error("built without what writes PDF");
}

void prepare_pdf() {}

#endif

}  // namespace cuvexa::paper
