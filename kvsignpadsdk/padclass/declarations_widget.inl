// The event handlers of widget hosts. The file canvashost does their work.
void mousePressEvent(QMouseEvent *pEvent) override;
void mouseMoveEvent(QMouseEvent *pEvent) override;
void paintEvent(QPaintEvent *pEvent) override;
void resizeEvent(QResizeEvent *pEvent) override;
