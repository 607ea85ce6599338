#include "Documents.h"

std::string envelopeDocument() {
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<soap:Envelope xmlns:soap="http://schemas.xmlsoap.org/soap/envelope/"
               xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance">
  <soap:Header>
    <t:Transaction xmlns:t="http://shop.example/transactions" soap:mustUnderstand="1">5-84a1</t:Transaction>
  </soap:Header>
  <soap:Body>
    <getQuotes xmlns="http://shop.example/quotes">
      <customer id="C-2087">Miller &amp; Sons</customer>
      <item sku="872-AA" quantity="1"/>
      <item sku="926-AA" quantity="12"/>
      <comment xsi:nil="true"/>
      <delivery method="express">before noon</delivery>
      <validUntil>2004-06-30T12:00:00Z</validUntil>
    </getQuotes>
  </soap:Body>
</soap:Envelope>
)";
}
