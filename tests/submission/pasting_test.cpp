#include "platform/web_address.h"
#include "submission/pop_up_window.h"
#include "submission/submit_window_fixture.h"
#include "support/listener.h"

/// Where values go that the panel pastes, and where not.
class PastingTest : public SubmitWindowTest
{
protected:
    void start() override
    {
        SubmitWindowTest::start();
        server.serve(u"/paste"_s,
                     {"<title>Paste</title><style>* { display: block; width: 300px; height: 30px }</style>"
                      "<input id=text><div id=rich contenteditable></div><input id=locked readonly>"
                      "<script>got = ''; block = () => { for (const end = Date.now() + 1500; "
                      "Date.now() < end;); }</script>"});
    }
    static QString notice() { return visible<QLabel>(u"notice"_s)->text(); }
    static QString received(const QString &view = u"qnWebView"_s)
    {
        return ask(u"document.getElementById('text').value + (window.rich?.innerText ?? '') + (window.got ?? '')"_s,
                   view)
            .toString();
    }
    /// Clicks where @p place is in @p view, and waits for nothing.
    static void clickAt(const QPoint &place, const QString &view = u"qnWebView"_s)
    {
        QTest::mouseClick(visible<QWebEngineView>(view)->focusProxy(), Qt::LeftButton, {}, place);
    }
    static QPoint middleOf(const QString &id, const QString &view = u"qnWebView"_s)
    {
        const QVariantList place = ask(u"(r => [r.x + r.width / 2, r.y + r.height / 2])"
                                       "(document.getElementById('%1').getBoundingClientRect())"_s.arg(id),
                                       view)
                                       .toList();
        return {place.value(0).toInt(), place.value(1).toInt()};
    }
};

TEST_F(PastingTest, EachPageReceivesWhatWasMeantForIt)
{
    const QString popUp = u"popUpWebView"_s;
    ASSERT_TRUE(open(u"/windows.html"_s));
    click(u"link"_s);
    ASSERT_TRUE(eventually([] { return openWindow<PopUpWindow>() != nullptr; }));
    ASSERT_TRUE(waitForPage(u"Submit", popUp));
    click(u"text"_s, {}, popUp);
    const QPoint place = middleOf(u"text"_s, popUp);
    click(u"text"_s);
    ask(u"setTimeout(() => { for (const end = Date.now() + 1500; Date.now() < end;); }, 0); 0"_s);
    QTest::qWait(100); // Input goes before timers.
    press(u"companyNameButton"_s);
    clickAt(place, popUp);
    press(u"companyCityTownButton"_s);
    EXPECT_TRUE(eventually([&] { return received(popUp) == u"Leeds"; })) << received(popUp);
    EXPECT_EQ(received(), u"Tom &amp; Sons"_s);
}

TEST_F(PastingTest, WhatIsCopiedElsewhereMeanwhileGoesNowhere)
{
    const QString scripts[] = {
        u"setTimeout(block)"_s,
        u"setTimeout(block); addEventListener('paste', event => { got = event.clipboardData.getData('text/plain'); })"_s,
        u"addEventListener('paste', block)"_s,
        u"addEventListener('beforeinput', block)"_s,
        u"addEventListener('paste', event => { block(); got = event.clipboardData.getData('text/plain'); })"_s,
        u"addEventListener('beforeinput', event => { block(); got = event.data ?? "
        "event.dataTransfer.getData('text/plain'); })"_s,
    };
    for (const QString &field : {u"text"_s, u"rich"_s}) {
        for (const QString &script : scripts) {
            ASSERT_TRUE(open(u"/paste"_s));
            click(field);
            ask(script + u"; 0"_s);
            QTest::qWait(100); // Input goes before timers.
            press(u"companyNameButton"_s);
            QTest::qWait(500);
            QApplication::clipboard()->setText(u"secret"_s);
            EXPECT_TRUE(eventually([] {
                return notice().contains(u"something else") || received().contains(u"secret");
            })) << script;
            ASSERT_FALSE(received().contains(u"secret")) << script;
        }
        ASSERT_TRUE(open(u"/paste"_s));
        click(field);
        press(u"companyNameButton"_s);
        EXPECT_TRUE(eventually([&] { return received() == u"Tom &amp; Sons"; }))
            << "nothing else stands in the way";
    }
}

TEST_F(PastingTest, AnotherDocumentReceivesNothing)
{
    server.serve(u"/next"_s, {"<title>Next</title><input id=text autofocus>"});
    ASSERT_TRUE(open(u"/paste"_s));
    click(u"text"_s);
    ask(u"setTimeout(block); 0"_s);
    QTest::qWait(100);
    press(u"companyNameButton"_s);
    press(u"companyCityTownButton"_s);
    visit(server.url(u"/next"_s));
    ASSERT_TRUE(waitForPage(u"Next"));
    EXPECT_TRUE(eventually([] { return notice().contains(u"the page was left"); }));
    QTest::qWait(700);
    EXPECT_EQ(received(), QString());
    EXPECT_EQ(QApplication::clipboard()->text(), u"Leeds"_s) << "but can be pasted by hand";
    click(u"text"_s);
    press(u"companyNameButton"_s);
    EXPECT_TRUE(eventually([&] { return received() == u"Tom &amp; Sons"; }))
        << "and the next press works again";
}

TEST_F(PastingTest, APageThatAnswersTooLateReceivesNothing)
{
    ASSERT_TRUE(open(u"/paste"_s));
    click(u"text"_s);
    ask(u"setTimeout(() => { for (const end = Date.now() + 11000; Date.now() < end;); }); 0"_s);
    QTest::qWait(100);
    press(u"companyNameButton"_s);
    ASSERT_TRUE(eventually([] { return notice().contains(u"did not answer"); }));
    QApplication::clipboard()->setText(u"secret"_s);
    received();
    QTest::qWait(700);
    EXPECT_EQ(received(), QString());
    press(u"companyCityTownButton"_s);
    EXPECT_TRUE(eventually([] { return received() == u"Leeds"; })) << "and the next press works again";
}

TEST_F(PastingTest, AFrameFromElsewhereGetsWhatTheAuthorClickedItFor)
{
    const QByteArray report = "<input id=text style='position: fixed; inset: 0'>"
                              "<script>const tell = top => addEventListener('input', event => "
                              "top.postMessage(event.target.value, '*')); tell(top);"
                              "onpointerdown = () => top.postMessage('pressed', '*'); onmessage = () => ";
    WebServer other; // On the same machine, so that the mouse reaches its frames without a screen.
    other.serve(u"/clicked"_s, {report + "document.getElementById('text').focus()</script>"});
    server.serve(u"/direct"_s, {report + "document.getElementById('text').focus()</script>"});
    server.serve(u"/nested"_s,
                 {report + "{ const inner = document.createElement('iframe'); document.body.append(inner);"
                           "const field = inner.contentDocument.createElement('input');"
                           "inner.contentDocument.body.append(field); field.focus();"
                           "field.oninput = () => top.postMessage(field.value, '*'); }</script>"});
    const QString elsewhere[] = {
        other.url(u"/clicked"_s),
        server.url(u"/direct"_s).replace(u"127.0.0.1"_s, u"localhost"_s),
        server.url(u"/nested"_s).replace(u"127.0.0.1"_s, u"localhost"_s),
    };
    for (const QString &frame : elsewhere) {
        server.serve(u"/framed"_s,
                     {"<title>Framed</title><input id=text><br><iframe id=frame src='" + frame.toUtf8() +
                      "'></iframe><script>got = ''; onmessage = event => got = event.data</script>"});
        ASSERT_TRUE(open(u"/framed"_s));
        click(u"text"_s);
        ask(u"document.getElementById('frame').contentWindow.postMessage('', '*'); 0"_s);
        ASSERT_TRUE(eventually([] { return ask(u"document.activeElement.id"_s) == u"frame"_s; }));
        press(u"companyNameButton"_s);
        EXPECT_TRUE(eventually([&] {
            return notice().contains(u"“%1”"_s.arg(unmistakableHost(QUrl(frame)))) || !received().isEmpty();
        })) << frame;
        ASSERT_EQ(received(), QString()) << frame;
        if (!frame.endsWith(u"/clicked"))
            continue;
        const QPoint place = middleOf(u"frame"_s);
        ASSERT_TRUE(eventually([&] {
            clickAt(place);
            return received() == u"pressed";
        }));
        press(u"companyCityTownButton"_s);
        EXPECT_TRUE(eventually([] { return received() == u"Leeds"; })) << notice();
    }
}

TEST_F(PastingTest, AReadOnlyFieldIsCalledSo)
{
    ASSERT_TRUE(open(u"/paste"_s));
    click(u"locked"_s);
    press(u"companyNameButton"_s);
    EXPECT_TRUE(eventually([] { return notice().contains(u"read-only"); })) << notice();
}

TEST_F(PastingTest, WhatAFieldMakesOfAValueIsTold)
{
    WebServer other;
    other.serve(u"/frame"_s, {"<input id=field maxlength=3 style='position: fixed; inset: 0'>"});
    const auto on = [](const QString &event, const QString &act) {
        return u"<input id=field on%1='%2'>"_s.arg(event, act);
    };
    const QString name = u"companyNameButton"_s, lines = u"pb80CharDescriptionButton"_s;
    const struct
    {
        QString field, button, notice;
    } cases[] = {
        {u"<input id=field maxlength=5>"_s, name, u"has taken 5 of 14 characters, and now holds “Tom &”"_s},
        {u"<input id=field value=Yes maxlength=5 autofocus>"_s, name, u"has taken 2 of 14 characters"_s},
        {on(u"input"_s, u"value = value.toUpperCase()"_s), name, u"now holds “TOM &AMP; SONS”"_s},
        {on(u"input"_s, u"setTimeout(() => value = \"a\\u202eb\", 200)"_s), name, u"now holds “a\ufffdb”"_s},
        {on(u"input"_s, u"value = \"\""_s), name, u"is empty"_s},
        {on(u"paste"_s, u"return false"_s), name, u"is empty"_s},
        {on(u"input"_s, u"value = \"x\".repeat(5000)"_s), name, u"now holds “%1…”"_s.arg(QString(120, u'x'))},
        {u"<textarea id=field maxlength=12></textarea>"_s, lines, u"now holds “First line\u240as”"_s},
        {u"<div id=field contenteditable oninput='innerText = 1'>"_s, name, u"now holds “1”"_s},
        {u"<input id=field type=number>"_s, name, u"is empty"_s},
        {u"<input id=field type=date>"_s, name, u"is empty"_s},
        {u"<input id=field>"_s, lines, {}},
        {u"<textarea id=field></textarea>"_s, lines, {}},
        {u"<div id=field contenteditable>"_s, lines, {}},
        {u"<input id=field value=Yes>"_s, name, {}},
        {u"<input id=field type=number>"_s, u"sizeInBytesButton"_s, {}},
        {u"<input id=field type=password maxlength=3>"_s, name, {}},
        {u"<input id=field><script>Object.defineProperty(HTMLInputElement.prototype, \"value\", "
         "{ get: () => \"lie\" }); globalThis.quillonPasted = () => \"lie\"</script>"_s,
         name,
         {}},
        {u"<iframe id=field src='%1'></iframe>"_s.arg(other.url(u"/frame"_s)), name, {}},
    };
    for (const auto &each : cases) {
        server.serve(u"/read"_s, {"<title>Read</title>Text, since pages without any take no "
                                  "clicks<style>#field { display: block; width: 300px; height: 30px }"
                                  "</style>" +
                                  each.field.toUtf8()});
        ASSERT_TRUE(open(u"/read"_s));
        const bool isFrame = each.field.contains(u"iframe");
        if (isFrame)
            EXPECT_TRUE(eventually([] {
                clickAt(middleOf(u"field"_s));
                return ask(u"document.activeElement.id"_s) == u"field"_s;
            }));
        else
            click(u"field"_s);
        const Listener listener;
        press(each.button);
        ASSERT_TRUE(eventually([&] {
            return each.notice.isEmpty() ? listener.said.join(u'|').startsWith(u"Pasted: ")
                                         : notice().contains(each.notice);
        })) << each.field.toStdString()
            << ": " << notice().toStdString();
        EXPECT_NE(listener.said.contains(notice()), each.notice.isEmpty()) << listener.said.join(u'|');
        EXPECT_TRUE(!each.notice.isEmpty() || notice().isEmpty())
            << each.field.toStdString() << ": " << notice().toStdString();
    }
}
