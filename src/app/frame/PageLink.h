#pragma once

#include <QObject>

#include <functional>

namespace pellam {

class CGridView;
class CTrendView;
class TabPages;

/// Keeps the two pages in step: the chart is built when its page comes to the front or its channels
/// change there, and the current row is shown on both.
class PageLink : public QObject {
    Q_OBJECT

  public:
    struct Context {
        TabPages& pages;
        int chartPage; ///< its number
        CGridView& grid;
        CTrendView& chart;
        std::function<bool()> isLoading;
    };

    explicit PageLink(Context context, QObject* parent);

  Q_SIGNALS:
    void notice(const QString& text);

  private:
    void bringUp(int page);
    void goToRow(qint64 row);

    Context m_context;
};

} // namespace pellam
