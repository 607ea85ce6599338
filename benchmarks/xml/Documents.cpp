#include "Documents.h"

#include "Orders.h"

#include <array>
#include <cstddef>

namespace {

constexpr std::size_t documentSize = 4 * 1000 * 1000;

constexpr std::array<const char*, 6> sentences = {
    "The shipment left the warehouse on time and was handed to the carrier the same evening. ",
    "Prices are net of tax; the rebate agreed in the frame contract has been applied to all "
    "lines. ",
    "Where the stock doesn't suffice, the rest follows by separate delivery without further "
    "notice. ",
    "Any claim must be raised within fourteen days, in writing, with the number of this document. ",
    "Parts &amp; accessories are covered for two years, wear excepted, from the day of delivery. ",
    "If x &lt; 5 holds for the measured tolerance, no second inspection is needed at the site. "};

// Each fills its element: name of element and attribute, value, text.
struct Script {
    const char* element;
    const char* attribute;
    const char* value;
    const char* text;
};
constexpr std::array<Script, 4> scripts = {
    {{"запись", "город", "Санкт-Петербург, Невский проспект",
      "Товар отгружен со склада вовремя и в тот же вечер передан перевозчику для доставки."},
     {"εγγραφή", "πόλη", "Θεσσαλονίκη, Λεωφόρος Νίκης",
      "Οι τιμές δεν περιλαμβάνουν φόρο και η έκπτωση έχει ήδη εφαρμοστεί σε όλες τις γραμμές."},
     {"記録", "都市", "京都市中京区烏丸通御池下る",
      "在庫が足りない場合、残りは後日あらためてお届けいたします。ご了承ください。"},
     {"अभिलेख", "नगर", "वाराणसी, दशाश्वमेध घाट मार्ग",
      "माल समय पर गोदाम से निकला और उसी शाम वितरण के लिए वाहक को सौंप दिया गया।"}}};

template <typename AddElement>
std::string document(const std::string& start, const std::string& end, AddElement add) {
    std::string text = start;
    text.reserve(documentSize + 4096);
    for (std::size_t i = 0; text.size() < documentSize; ++i) {
        add(text, i);
    }
    return text + end;
}

void addRow(std::string& text, std::size_t i) {
    const std::string number = std::to_string(i);
    text += "<row id=\"r" + number + "\" name=\"Measuring point " + number + "\" kind=\"sensor\"";
    text += " g:latitude=\"48.13" + number + "\" g:longitude=\"11.57" + number + "\"";
    text += " unit=\"degrees Celsius\" interval=\"PT15M\" owner=\"Miller &amp; Sons\"";
    text += " contact=\"facility-management@shop.example\" enabled=\"true\"/>\n";
}

void addParagraph(std::string& text, std::size_t i) {
    text += "<p>";
    for (std::size_t sentence = 0; sentence < 4 + i % 5; ++sentence) {
        text += sentences[(i + sentence) % sentences.size()];
    }
    text += "</p>\n";
}

void addScript(std::string& text, std::size_t i) {
    const Script& script = scripts[i % scripts.size()];
    const std::string name = script.element;
    text += "<" + name + " " + script.attribute + "=\"" + script.value + "\">";
    text += std::string(script.text) + "</" + name + ">";
}

}  // namespace

std::string soapDocument() {
    int count = 1000;
    std::string text = writeWithString(makeOrders(count));
    while (text.size() < documentSize) {
        count += count / 8;
        text = writeWithString(makeOrders(count));
    }
    return text;
}

std::string attributesDocument() {
    return document(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<table xmlns=\"urn:example:points\" xmlns:g=\"urn:example:geo\">\n",
        "</table>\n", addRow);
}

std::string textDocument() {
    return document(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<book xmlns=\"urn:example:book\">\n",
        "</book>\n", addParagraph);
}

std::string nonAsciiDocument() {
    return document(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<архив xmlns=\"urn:example:archive\">",
        "</архив>\n", addScript);
}
