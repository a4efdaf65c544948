// SPDX-License-Identifier: MIT
#include "platform/xml/XMLNode.h"

#include "ParserEvents.h"
#include "platform/xml/XMLDocument.h"
#include "platform/xml/XMLParserError.h"

namespace {

using platform::Error;
using platform::XMLDocument;
using platform::XMLElement;
using platform::XMLNode;

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

XMLElement element(const char* xml)
{
    Error error;
    const auto result = XMLElement::fromXmlString(QString::fromUtf8(xml), &error);
    EXPECT_TRUE(result) << error.localizedDescription().toStdString();
    return result ? *result : XMLElement::create(QStringLiteral("failed"));
}

TEST(XMLElementTest, ReadsOneElement)
{
    const XMLElement media =
        element("<en-media type=\"image/png\" hash='ab' alt=\"&nbsp;&quot;\"/>");
    EXPECT_EQ(media.name(), text("en-media"));
    EXPECT_EQ(media.attribute(u"type"), text("image/png"));
    EXPECT_EQ(media.attribute(u"hash"), text("ab"));
    EXPECT_EQ(media.attribute(u"alt"), text("\u00A0\""));
    EXPECT_EQ(media.attribute(u"Type"), std::nullopt);
    EXPECT_EQ(media.childCount(), 0);
}

TEST(XMLElementTest, ReadsStrictly)
{
    for (const char* xml :
         {"", "text", "<a>", "<a></a><b></b>", "<a></a>text", "<a b=1></a>", "<a>&unknown;</a>"}) {
        Error error;
        EXPECT_FALSE(XMLElement::fromXmlString(QString::fromUtf8(xml), &error)) << xml;
        EXPECT_EQ(error.domain(), platform::xmlParserErrorDomain);
    }
}

TEST(XMLElementTest, TheTextIsUnicodeWhateverItSaysItself)
{
    const auto latin =
        XMLElement::fromXmlString(u"<?xml version='1.0' encoding='ISO-8859-1'?><a>ä€</a>");
    ASSERT_TRUE(latin);
    EXPECT_EQ(latin->stringValue(), text("ä€"));
}

TEST(XMLElementTest, EmptyElementsAreWrittenWithAnEndTag)
{
    EXPECT_EQ(element("<a><br/><img src='x'/></a>").xmlString(),
              text("<a><br></br><img src=\"x\"></img></a>"));
}

TEST(XMLElementTest, WritesWhatAReaderTakesForTheSame)
{
    const char* xml =
        "<a b=\"&lt;&amp;&gt;&quot;'&#10;&#9;&#13;\u00A0\">&lt;&amp;&gt;\"'\n\t&#13;\u00A0</a>";
    const XMLElement read = element(xml);
    EXPECT_EQ(read.xmlString(), text(xml));
    EXPECT_EQ(read.attribute(u"b"), text("<&>\"'\n\t\r\u00A0"));
    EXPECT_EQ(read.stringValue(), text("<&>\"'\n\t\r\u00A0"));
    EXPECT_EQ(read.xmlData(), QByteArray(xml));
}

TEST(XMLElementTest, WritesNamespacesCommentsAndInstructions)
{
    const char* xml = "<p:a xmlns:p=\"u\" xmlns=\"v\" p:x=\"1\" xml:lang=\"en\"><b></b><!-- c "
                      "--><?d e?><?f?></p:a>";
    EXPECT_EQ(element(xml).xmlString(), text(xml));
    EXPECT_EQ(element(xml).name(), text("p:a"));
    EXPECT_EQ(element(xml).attribute(u"p:x"), text("1"));
    EXPECT_EQ(element(xml).attribute(u"xml:lang"), text("en"));
}

TEST(XMLElementTest, AcceptsUndeclaredPrefixes)
{
    EXPECT_EQ(element("<o:p a:b='c'>x</o:p>").xmlString(), text("<o:p a:b=\"c\">x</o:p>"));
    EXPECT_EQ(element("<o:p a:b='c'>x</o:p>").attribute(u"a:b"), text("c"));
}

TEST(XMLElementTest, SetsAttributesInOrder)
{
    XMLElement image = XMLElement::create(QStringLiteral("img"));
    image.setAttribute(u"width", u"10");
    image.setAttribute(u"src", u"a & \"b\".png");
    image.setAttribute(u"width", u"20");
    EXPECT_EQ(image.xmlString(),
              text("<img width=\"20\" src=\"a &amp; &quot;b&quot;.png\"></img>"));
    EXPECT_EQ(image.attribute(u"src"), text("a & \"b\".png"));
}

TEST(XMLElementTest, WalksItsChildren)
{
    const XMLElement parent = element("<a>x<b><c/></b><!--d--><?e f?></a>");
    EXPECT_EQ(parent.childCount(), 4);
    const std::vector<XMLNode> children = parent.children();
    ASSERT_EQ(children.size(), 4U);
    EXPECT_EQ(children[0].kind(), XMLNode::Kind::Text);
    EXPECT_EQ(children[0].name(), QString());
    EXPECT_EQ(children[0].stringValue(), text("x"));
    EXPECT_EQ(children[0].toElement(), std::nullopt);
    EXPECT_EQ(children[1].kind(), XMLNode::Kind::Element);
    EXPECT_EQ(children[1].toElement()->name(), text("b"));
    EXPECT_EQ(children[1].parent(), parent);
    EXPECT_EQ(children[2].kind(), XMLNode::Kind::Comment);
    EXPECT_EQ(children[2].stringValue(), text("d"));
    EXPECT_EQ(children[3].kind(), XMLNode::Kind::ProcessingInstruction);
    EXPECT_EQ(children[3].name(), text("e"));
    EXPECT_EQ(parent.firstChild(), children[0]);
    EXPECT_EQ(children[0].nextSibling(), children[1]);
    EXPECT_EQ(children[3].nextSibling(), std::nullopt);
    EXPECT_EQ(parent.parent(), std::nullopt);
}

TEST(XMLElementTest, JoinsTheTextWithin)
{
    EXPECT_EQ(element("<a>1<b>2<c>3</c></b><!--x-->4<![CDATA[5]]></a>").stringValue(),
              text("12345"));
}

TEST(XMLElementTest, ANodeOutlivesItsDocumentAndItsPlace)
{
    std::optional<XMLNode> child;
    {
        XMLElement parent = element("<a><b>x</b><c/></a>");
        child = parent.firstChild();
        child->detach();
        EXPECT_EQ(parent.xmlString(), text("<a><c></c></a>"));
    }
    EXPECT_EQ(child->xmlString(), text("<b>x</b>"));
    EXPECT_EQ(child->parent(), std::nullopt);
    EXPECT_EQ(child->nextSibling(), std::nullopt);
    child->detach();
}

TEST(XMLElementTest, ARootBecomesAnotherElementsChild)
{
    const auto document =
        XMLDocument::fromData("<div x='1'><b>t</b></div>", XMLDocument::Tidy::Yes);
    ASSERT_TRUE(document);
    XMLElement note = XMLElement::create(QStringLiteral("en-note"));
    XMLElement root = document->rootElement();
    root.detach();
    const auto child = note.addChild(root);
    ASSERT_TRUE(child);
    EXPECT_EQ(note.xmlString(), text("<en-note><div x=\"1\"><b>t</b></div></en-note>"));
    EXPECT_EQ(child->parent(), note);
    EXPECT_EQ(note.childCount(), 1);
}

TEST(XMLElementTest, ChildrenMoveWithinATree)
{
    XMLElement parent = element("<a>x<b/>y</a>");
    const XMLNode first = *parent.firstChild();
    EXPECT_EQ(parent.addChild(first), first);
    EXPECT_EQ(parent.xmlString(), text("<a><b></b>yx</a>"));
    XMLElement inner = *parent.firstChild()->toElement();
    EXPECT_TRUE(inner.addChild(first));
    EXPECT_EQ(parent.xmlString(), text("<a><b>x</b>y</a>"));
}

TEST(XMLElementTest, NothingMovesIntoItself)
{
    XMLElement parent = element("<a><b><c/></b></a>");
    XMLElement inner = *parent.firstChild()->firstChild()->toElement();
    EXPECT_FALSE(inner.addChild(parent));
    EXPECT_FALSE(inner.addChild(inner));
    EXPECT_EQ(parent.xmlString(), text("<a><b><c></c></b></a>"));
}

} // namespace
