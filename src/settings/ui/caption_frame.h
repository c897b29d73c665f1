#pragma once

#include <QWidget>

// A frame whose caption sits on its top line, as the twips layouts inside it expect: children count their
// positions from the frame's outer corner and stay clear of the caption.
class CaptionFrame : public QWidget {
    Q_OBJECT
public:
    explicit CaptionFrame(const QString& caption, QWidget* parent = nullptr);

    QString caption() const { return m_caption; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_caption;
};
