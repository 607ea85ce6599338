#include <nolk/core/LocalizedMessage.h>
#include <nolk/core/MessageIds.h>

#include <gtest/gtest.h>

#include <iterator>
#include <set>
#include <string>

namespace nolk {
namespace {

struct Row {
    const MessageCatalogId* id;
    const char* component;
    const char* key;
    const char* text;
};

// clang-format off
const Row rows[] = {
    {&NOLK_AGENT_AGENT_CONFIG_PARSE_ERROR, "NOLK_AGENT", "AGENT_CONFIG_PARSE_ERROR",
     "Error parsing agent-startup XML config element: %1%: %2%"},
    {&NOLK_AGENT_AGENT_SHUTDOWN_CONFIG_ERROR, "NOLK_AGENT", "AGENT_SHUTDOWN_CONFIG_ERROR",
     "Unable to shutdown server, the '%1%' property was not set"},
    {&NOLK_AGENT_AGENT_STARTUP_ERROR, "NOLK_AGENT", "AGENT_STARTUP_ERROR",
     "Error starting agent: %1%"},
    {&NOLK_AGENT_AGENT_STARTUP_ERROR_UNEXPECTED_EXCEPTION, "NOLK_AGENT", "AGENT_STARTUP_ERROR_UNEXPECTED_EXCEPTION",
     "Unexpected error starting agent: %1%"},
    {&NOLK_AGENT_AGENT_STARTUP_ERROR_UNKNOWN_EXCEPTION, "NOLK_AGENT", "AGENT_STARTUP_ERROR_UNKNOWN_EXCEPTION",
     "Unexpected and unknown exception (usually indicates a low-level crash)"},
    {&NOLK_AGENT_AGENT_STARTUP_EXECUTE_POST_STARTUP_METHODS_ERROR, "NOLK_AGENT", "AGENT_STARTUP_EXECUTE_POST_STARTUP_METHODS_ERROR",
     "Error executing 'postStartup' methods: %1%"},
    {&NOLK_AGENT_AGENT_STARTUP_INIT_ERROR, "NOLK_AGENT", "AGENT_STARTUP_INIT_ERROR",
     "Error initializing main agent configuration: %1%"},
    {&NOLK_AGENT_AGENT_STARTUP_NO_CONFIG, "NOLK_AGENT", "AGENT_STARTUP_NO_CONFIG",
     "Runtime directory [%1%] has no valid '%2%' configuration file"},
    {&NOLK_AGENT_AGENT_STARTUP_NO_RUNTIME_PROPERTY, "NOLK_AGENT", "AGENT_STARTUP_NO_RUNTIME_PROPERTY",
     "The runtime directory must be set with '-r' or with the 'agent.root' system property"},
    {&NOLK_AGENT_AGENT_STARTUP_PARSE_ERROR, "NOLK_AGENT", "AGENT_STARTUP_PARSE_ERROR",
     "Error parsing startup configuration file: %1%"},
    {&NOLK_AGENT_AGENT_STARTUP_RESTORE_MESSAGES_ERROR, "NOLK_AGENT", "AGENT_STARTUP_RESTORE_MESSAGES_ERROR",
     "Error restoring messages from configured connectors: %1%"},
    {&NOLK_AGENT_AGENT_STARTUP_SHUTDOWN_INIT_ERROR, "NOLK_AGENT", "AGENT_STARTUP_SHUTDOWN_INIT_ERROR",
     "Error setting up shutdown command listener: The '%1%' property was not set"},
    {&NOLK_AGENT_AGENT_STARTUP_START_CONNECTORS_ERROR, "NOLK_AGENT", "AGENT_STARTUP_START_CONNECTORS_ERROR",
     "Error starting configured connectors: %1%"},
    {&NOLK_CORE_BAD_CAST, "NOLK_CORE", "BAD_CAST",
     "Bad cast exception."},
    {&NOLK_CORE_BOUNDS_ILLEGAL_INDEX, "NOLK_CORE", "BOUNDS_ILLEGAL_INDEX",
     "Illegal Index (%1%) for collection or string with %2% elements"},
    {&NOLK_CORE_BOUNDS_INDEX_OUT_OF_RANGE, "NOLK_CORE", "BOUNDS_INDEX_OUT_OF_RANGE",
     "Index (%1%) out of range [0->%2%]"},
    {&NOLK_CORE_BOUNDS_STRING_ILLEGAL_SUBSTRING, "NOLK_CORE", "BOUNDS_STRING_ILLEGAL_SUBSTRING",
     "Illegal substring (%1%, %2%) from %3% element CString"},
    {&NOLK_CORE_BOUNDS_STRING_NPOS, "NOLK_CORE", "BOUNDS_STRING_NPOS",
     "String index cannot be 'npos'"},
    {&NOLK_CORE_CONVERSION_ILLEGAL_SEQUENCE, "NOLK_CORE", "CONVERSION_ILLEGAL_SEQUENCE",
     "The byte values at elements %1% through %2% form an illegal encoding sequence"},
    {&NOLK_CORE_CONVERSION_INCOMPLETE_SEQUENCE, "NOLK_CORE", "CONVERSION_INCOMPLETE_SEQUENCE",
     "The byte values at elements %1% through %2% form an incomplete encoding sequence"},
    {&NOLK_CORE_CONVERSION_IRREGULAR_SEQUENCE, "NOLK_CORE", "CONVERSION_IRREGULAR_SEQUENCE",
     "The UTF-8 multibyte sequence at elements %1% through %2% encode a non-character value"},
    {&NOLK_CORE_DATETIME_INVALID_OBJECT, "NOLK_CORE", "DATETIME_INVALID_OBJECT",
     "DateTime: Operation attempted with invalid object"},
    {&NOLK_CORE_DATETIME_INVALID_SENTINEL, "NOLK_CORE", "DATETIME_INVALID_SENTINEL",
     "invalid user sentinel"},
    {&NOLK_CORE_DEFAULT_LOCALE_NOT_FOUND, "NOLK_CORE", "DEFAULT_LOCALE_NOT_FOUND",
     "Couldn't find default locale: %1%"},
    {&NOLK_CORE_DYNAMIC_LIBRARY_LOAD_FAILURE, "NOLK_CORE", "DYNAMIC_LIBRARY_LOAD_FAILURE",
     "Unable to load library for : %1%: %2%;"},
    {&NOLK_CORE_DYNAMIC_LIBRARY_METHOD_NOT_FOUND, "NOLK_CORE", "DYNAMIC_LIBRARY_METHOD_NOT_FOUND",
     "Unable to find method '%1%' in '%2%'"},
    {&NOLK_CORE_ERROR_LOADING_LOCALE, "NOLK_CORE", "ERROR_LOADING_LOCALE",
     "Error loading locale [%1%] and catalog [%2%]: %3%"},
    {&NOLK_CORE_FILE_CANNOT_RENAME, "NOLK_CORE", "FILE_CANNOT_RENAME",
     "Unable to rename file %1% to %2%: %3%"},
    {&NOLK_CORE_FILE_COULDNT_CHMOD, "NOLK_CORE", "FILE_COULDNT_CHMOD",
     "File %1% could not be chmod'd: %2%"},
    {&NOLK_CORE_FILE_COULDNT_MOVE, "NOLK_CORE", "FILE_COULDNT_MOVE",
     "Error moving file: %1% to: %2%: %3%"},
    {&NOLK_CORE_FILE_COULDNT_STAT, "NOLK_CORE", "FILE_COULDNT_STAT",
     "File %1% could not be stat'd: %2%"},
    {&NOLK_CORE_FILE_COULDNT_WRITE, "NOLK_CORE", "FILE_COULDNT_WRITE",
     "File %1% could not be opened for writing: %2%"},
    {&NOLK_CORE_FILE_INVALID_MODE, "NOLK_CORE", "FILE_INVALID_MODE",
     "Null pointer or empty string specified for mode."},
    {&NOLK_CORE_FILE_INVALID_STREAM, "NOLK_CORE", "FILE_INVALID_STREAM",
     "A valid file stream was never created."},
    {&NOLK_CORE_FILE_NAME_EMPTY_STRING, "NOLK_CORE", "FILE_NAME_EMPTY_STRING",
     "Empty string specified for filename."},
    {&NOLK_CORE_FILE_NOT_FOUND, "NOLK_CORE", "FILE_NOT_FOUND",
     "File %1% not found"},
    {&NOLK_CORE_FILE_OPEN_FAILED, "NOLK_CORE", "FILE_OPEN_FAILED",
     "Unable to open file: %1%"},
    {&NOLK_AGENT_HANDLER_KEY_NOT_FOUND, "NOLK_AGENT", "HANDLER_KEY_NOT_FOUND",
     "MessageInfo key '%1%' not found"},
    {&NOLK_AGENT_HTTP_NOT_HTTP_REQUEST, "NOLK_AGENT", "HTTP_NOT_HTTP_REQUEST",
     "Received a non-HTTP message on the HTTP connector.  Ignoring."},
    {&NOLK_CORE_INVALID_BASE64, "NOLK_CORE", "INVALID_BASE64",
     "Invalid base64 encoded character"},
    {&NOLK_CORE_INVALID_BOOLEAN, "NOLK_CORE", "INVALID_BOOLEAN",
     "Invalid boolean: %1%"},
    {&NOLK_CORE_INVALID_ID, "NOLK_CORE", "INVALID_ID",
     "Unrecognized message identifier: %1%"},
    {&NOLK_CORE_INVALID_ITERATOR, "NOLK_CORE", "INVALID_ITERATOR",
     "Invalid iterator"},
    {&NOLK_CORE_INVALID_USAGE, "NOLK_CORE", "INVALID_USAGE",
     "Invalid Usage"},
    {&NOLK_CORE_LOGGER_MANAGER_NOT_INITIALIZED, "NOLK_CORE", "LOGGER_MANAGER_NOT_INITIALIZED",
     "nolk::LogManager not initialized."},
    {&NOLK_CORE_LOGGER_MISSING_CONFIG_PARAMETER, "NOLK_CORE", "LOGGER_MISSING_CONFIG_PARAMETER",
     "Logger module missing required parameter: %1%"},
    {&NOLK_CORE_NAMING_COULDNT_LOAD, "NOLK_CORE", "NAMING_COULDNT_LOAD",
     "Couldn't load: %1%"},
    {&NOLK_CORE_NAMING_CREATE_METHOD_ERROR, "NOLK_CORE", "NAMING_CREATE_METHOD_ERROR",
     "Error while loading named obejct [%1%], creation method not found: %2%"},
    {&NOLK_CORE_NAMING_LIBRARY_ERROR, "NOLK_CORE", "NAMING_LIBRARY_ERROR",
     "Error while loading named object [%1%], couldn't load DLL [%2%]: %3%"},
    {&NOLK_CORE_NAMING_NAME_ALREADY_EXISTS, "NOLK_CORE", "NAMING_NAME_ALREADY_EXISTS",
     "Name: %1% already exists"},
    {&NOLK_CORE_NO_ERROR, "NOLK_CORE", "NO_ERROR",
     "No Error"},
    {&NOLK_CORE_NO_MEMORY, "NOLK_CORE", "NO_MEMORY",
     "No memory"},
    {&NOLK_CORE_NOT_IMPLEMENTED, "NOLK_CORE", "NOT_IMPLEMENTED",
     "Function not implemented: %1%"},
    {&NOLK_CORE_NULL_POINTER, "NOLK_CORE", "NULL_POINTER",
     "Attempt to dereference a null pointer"},
    {&NOLK_CORE_QUEUE_CLOSED, "NOLK_CORE", "QUEUE_CLOSED",
     "Queue closed"},
    {&NOLK_CORE_QUEUE_EMPTY, "NOLK_CORE", "QUEUE_EMPTY",
     "Queue empty"},
    {&NOLK_CORE_QUEUE_WRITE_CLOSED, "NOLK_CORE", "QUEUE_WRITE_CLOSED",
     "Queue closed for write"},
    {&NOLK_CORE_REGEX_ASCII_ERROR, "NOLK_CORE", "REGEX_ASCII_ERROR",
     "ASCII Conversion Error"},
    {&NOLK_CORE_REGEX_CONSECUTIVE_CARDINALITIES, "NOLK_CORE", "REGEX_CONSECUTIVE_CARDINALITIES",
     "Consecutive cardinalities"},
    {&NOLK_CORE_REGEX_INFINITE_CARDINALITY, "NOLK_CORE", "REGEX_INFINITE_CARDINALITY",
     "Infinite cardinality on potentially empty match"},
    {&NOLK_CORE_REGEX_INFINTE_CATEGORY_NAME, "NOLK_CORE", "REGEX_INFINTE_CATEGORY_NAME",
     "Never-ending category name"},
    {&NOLK_CORE_REGEX_INSUFFICIENT_16BIT_DATA, "NOLK_CORE", "REGEX_INSUFFICIENT_16BIT_DATA",
     "Inusfficient data for 16-bit hex escape sequence"},
    {&NOLK_CORE_REGEX_INSUFFICIENT_8BIT_DATA, "NOLK_CORE", "REGEX_INSUFFICIENT_8BIT_DATA",
     "Inusfficient data for 8-bit hex escape sequence"},
    {&NOLK_CORE_REGEX_INVALID_CARDINATLIY_RANGE, "NOLK_CORE", "REGEX_INVALID_CARDINATLIY_RANGE",
     "Invalid cardinality range"},
    {&NOLK_CORE_REGEX_INVALID_CATEGORY, "NOLK_CORE", "REGEX_INVALID_CATEGORY",
     "Invalid category name"},
    {&NOLK_CORE_REGEX_INVALID_DATA_AFTER_PIPE, "NOLK_CORE", "REGEX_INVALID_DATA_AFTER_PIPE",
     "Invalid data after |"},
    {&NOLK_CORE_REGEX_INVALID_DATA_BEFORE_PIPE, "NOLK_CORE", "REGEX_INVALID_DATA_BEFORE_PIPE",
     "Invalid data before |"},
    {&NOLK_CORE_REGEX_INVALID_DECIMAL, "NOLK_CORE", "REGEX_INVALID_DECIMAL",
     "Invalid decimal digit"},
    {&NOLK_CORE_REGEX_INVALID_HEX, "NOLK_CORE", "REGEX_INVALID_HEX",
     "Invalid hex nibble"},
    {&NOLK_CORE_REGEX_INVALID_SUBEXPRESSION, "NOLK_CORE", "REGEX_INVALID_SUBEXPRESSION",
     "Invalid sub-expression"},
    {&NOLK_CORE_REGEX_LEADING_CARDINATLIY, "NOLK_CORE", "REGEX_LEADING_CARDINATLIY",
     "Leading cardinality"},
    {&NOLK_CORE_REGEX_MISSING_CLOSING_BRACE, "NOLK_CORE", "REGEX_MISSING_CLOSING_BRACE",
     "Missing closing curly brace"},
    {&NOLK_CORE_REGEX_MISSING_CLOSING_BRACKET, "NOLK_CORE", "REGEX_MISSING_CLOSING_BRACKET",
     "Missing closing bracket"},
    {&NOLK_CORE_REGEX_MISSING_CLOSING_PAREN, "NOLK_CORE", "REGEX_MISSING_CLOSING_PAREN",
     "Missing closing parenthesis"},
    {&NOLK_CORE_REGEX_MISSING_ESCAPE, "NOLK_CORE", "REGEX_MISSING_ESCAPE",
     "Missing escape sequence"},
    {&NOLK_CORE_REGEX_NO_ERROR, "NOLK_CORE", "REGEX_NO_ERROR",
     "No error"},
    {&NOLK_CORE_REGEX_UNMATCHED_CLOSING_BRACE, "NOLK_CORE", "REGEX_UNMATCHED_CLOSING_BRACE",
     "Unmatched closing curly brace"},
    {&NOLK_CORE_REGEX_UNMATCHED_CLOSING_PAREN, "NOLK_CORE", "REGEX_UNMATCHED_CLOSING_PAREN",
     "Unmatched closing parenthesis"},
    {&NOLK_CORE_STACK_UNDERFLOW, "NOLK_CORE", "STACK_UNDERFLOW",
     "Stack underflow"},
    {&NOLK_CORE_SYSTEM_ERROR, "NOLK_CORE", "SYSTEM_ERROR",
     "System error: %1%"},
    {&NOLK_CORE_THREAD_ALREADY_STARTED, "NOLK_CORE", "THREAD_ALREADY_STARTED",
     "Thread Start Failed: Already executed"},
    {&NOLK_CORE_THREAD_ATTRIBUTE_CREATE_FAILED, "NOLK_CORE", "THREAD_ATTRIBUTE_CREATE_FAILED",
     "Thread Attribute Create Failed: %1%"},
    {&NOLK_CORE_THREAD_CREATE_FAILED, "NOLK_CORE", "THREAD_CREATE_FAILED",
     "Thread Create Failed: %1%"},
    {&NOLK_CORE_THREAD_GENERAL_ERROR, "NOLK_CORE", "THREAD_GENERAL_ERROR",
     "Thread error: %1%"},
    {&NOLK_CORE_THREAD_IOU_CLOSED, "NOLK_CORE", "THREAD_IOU_CLOSED",
     "IOU already closed"},
    {&NOLK_CORE_THREAD_JOIN_FAILED, "NOLK_CORE", "THREAD_JOIN_FAILED",
     "Thread Join Failed: %1%"},
    {&NOLK_CORE_THREAD_JOIN_FAILED_THREAD_HANDLE, "NOLK_CORE", "THREAD_JOIN_FAILED_THREAD_HANDLE",
     "Thread Join Failed: Unable to close Thread Handle"},
    {&NOLK_CORE_THREAD_JOIN_FAILED_TIMEOUT, "NOLK_CORE", "THREAD_JOIN_FAILED_TIMEOUT",
     "Thread Join Failed: Timeout Exceeded"},
    {&NOLK_CORE_THREAD_STACK_RESIZE_FAILURE, "NOLK_CORE", "THREAD_STACK_RESIZE_FAILURE",
     "Thread Stack Resize Failed: %1%"},
    {&NOLK_CORE_UNEXPECTED_ERROR, "NOLK_CORE", "UNEXPECTED_ERROR",
     "Unexpected Exception"},
    {&NOLK_CORE_UTILITY_UNMATCHED_DOUBLE_QUOTE, "NOLK_CORE", "UTILITY_UNMATCHED_DOUBLE_QUOTE",
     "Unmatched double-quote string: %1%"},
    {&NOLK_CORE_UTILITY_UNMATCHED_SINGLE_QUOTE, "NOLK_CORE", "UTILITY_UNMATCHED_SINGLE_QUOTE",
     "Unmatched single-quote string: %1%"},
    {&NOLK_CORE_XML_CHARSET_CONVERSION_FAILED, "NOLK_CORE", "XML_CHARSET_CONVERSION_FAILED",
     "Character set conversion failed: %1%"},
    {&NOLK_CORE_XML_CONVERSION_UNAVAILABLE, "NOLK_CORE", "XML_CONVERSION_UNAVAILABLE",
     "No conversion library[%1%] available from \"%2%\" to \"%3%\""},
    {&NOLK_CORE_XML_NO_FIELDS, "NOLK_CORE", "XML_NO_FIELDS",
     "No entry for fields."},
    {&NOLK_CORE_XML_NO_KEY_MAP, "NOLK_CORE", "XML_NO_KEY_MAP",
     "No key map."},
    {&NOLK_CORE_XML_PARSE_ATTRIBUTE_INVALID_CHAR, "NOLK_CORE", "XML_PARSE_ATTRIBUTE_INVALID_CHAR",
     "invalid character in attribute definition"},
    {&NOLK_CORE_XML_PARSE_ATTRIBUTE_NOT_FOUND, "NOLK_CORE", "XML_PARSE_ATTRIBUTE_NOT_FOUND",
     "Unable to find attribute: %1%"},
    {&NOLK_CORE_XML_PARSE_ATTRIBUTE_NOT_FOUND_IN_ELEMENT, "NOLK_CORE", "XML_PARSE_ATTRIBUTE_NOT_FOUND_IN_ELEMENT",
     "Parsing %1%: Unable to find attribute: %2% in element: %3%"},
    {&NOLK_CORE_XML_PARSE_ATTRIBUTE_UNTERMINATED_VALUE, "NOLK_CORE", "XML_PARSE_ATTRIBUTE_UNTERMINATED_VALUE",
     "Syntax error: unterminated attribute value"},
    {&NOLK_CORE_XML_PARSE_CLOSING_TAG_NOT_FOUND, "NOLK_CORE", "XML_PARSE_CLOSING_TAG_NOT_FOUND",
     "Unexpected EOF looking for closing tag."},
    {&NOLK_CORE_XML_PARSE_COMMENT_INVALID_DASH, "NOLK_CORE", "XML_PARSE_COMMENT_INVALID_DASH",
     "Invalid -- inside comment"},
    {&NOLK_CORE_XML_PARSE_COMMENT_SYNTAX_ERROR, "NOLK_CORE", "XML_PARSE_COMMENT_SYNTAX_ERROR",
     "Syntax error on comment"},
    {&NOLK_CORE_XML_PARSE_ELEMENT_WITHIN_CANT, "NOLK_CORE", "XML_PARSE_ELEMENT_WITHIN_CANT",
     "Parsing %1%: %2% element(s) cannot appear within a(n) %3% element"},
    {&NOLK_CORE_XML_PARSE_ELEMENT_WITHIN_MUST, "NOLK_CORE", "XML_PARSE_ELEMENT_WITHIN_MUST",
     "Parsing %1%: %2% element(s) can only appear within a(n) %3% element"},
    {&NOLK_CORE_XML_PARSE_ILLEGAL_NAME, "NOLK_CORE", "XML_PARSE_ILLEGAL_NAME",
     "Illegal starting character for name: %1%"},
    {&NOLK_CORE_XML_PARSE_INVALID_CDATA_DIRECTIVE, "NOLK_CORE", "XML_PARSE_INVALID_CDATA_DIRECTIVE",
     "'<![' wasnt followed by 'CDATA'"},
    {&NOLK_CORE_XML_PARSE_INVALID_CHAR_IN_REFERENCE, "NOLK_CORE", "XML_PARSE_INVALID_CHAR_IN_REFERENCE",
     "invalid character in hexadecimal character reference."},
    {&NOLK_CORE_XML_PARSE_INVALID_FIRST_CHAR, "NOLK_CORE", "XML_PARSE_INVALID_FIRST_CHAR",
     "First non-ws character in document wasn't '<'"},
    {&NOLK_CORE_XML_PARSE_INVALID_SEQUENCE, "NOLK_CORE", "XML_PARSE_INVALID_SEQUENCE",
     "Invalid character sequence <!%1%"},
    {&NOLK_CORE_XML_PARSE_INVALID_SLASH, "NOLK_CORE", "XML_PARSE_INVALID_SLASH",
     "Invalid '/' found in tag"},
    {&NOLK_CORE_XML_PARSE_MISSING_NAMESPACE, "NOLK_CORE", "XML_PARSE_MISSING_NAMESPACE",
     "Missing namespace definition: %1%"},
    {&NOLK_CORE_XML_PARSE_NO_END_TAG, "NOLK_CORE", "XML_PARSE_NO_END_TAG",
     "Couldn't find end tag: %1%"},
    {&NOLK_CORE_XML_PARSE_NO_START_TAG, "NOLK_CORE", "XML_PARSE_NO_START_TAG",
     "Couldn't find start tag: %1%"},
    {&NOLK_CORE_XML_PARSE_PREMATURE_EOF, "NOLK_CORE", "XML_PARSE_PREMATURE_EOF",
     "Premature EOF"},
    {&NOLK_CORE_XML_PARSE_PREMATURE_EOF_INSIDE_CHAR, "NOLK_CORE", "XML_PARSE_PREMATURE_EOF_INSIDE_CHAR",
     "Premature EOF inside character"},
    {&NOLK_CORE_XML_PARSE_UNEXPECTED_CHAR, "NOLK_CORE", "XML_PARSE_UNEXPECTED_CHAR",
     "Unexpected character %1%"},
    {&NOLK_CORE_XML_PARSE_UNEXPECTED_ELEMENT, "NOLK_CORE", "XML_PARSE_UNEXPECTED_ELEMENT",
     "Expected %1%, found %2%"},
    {&NOLK_CORE_XML_PARSE_UNKNOWN_PROLOG, "NOLK_CORE", "XML_PARSE_UNKNOWN_PROLOG",
     "Unknown prolog tag"},
    {&NOLK_CORE_XML_PARSE_UNMATCHED_START, "NOLK_CORE", "XML_PARSE_UNMATCHED_START",
     "Unmatched start tag for %1%"},
    {&NOLK_CORE_XML_TRANSCODE_FAILED, "NOLK_CORE", "XML_TRANSCODE_FAILED",
     "Couldn't transcode from input encoding '%1%': %2%"},
    {&NOLK_CORE_XML_TRANSCODE_FROM_DECL_FAILED, "NOLK_CORE", "XML_TRANSCODE_FROM_DECL_FAILED",
     "Encoding to based on character-encoding identifier '%1%' failed.  Please verify encoding decleration."},
    {&NOLK_CORE_XML_VALIDATE_BOUNDS_ERROR, "NOLK_CORE", "XML_VALIDATE_BOUNDS_ERROR",
     "Bounds error in: %1% size = %2% minOccurs = %3% maxOccurs = %4%"},
    {&NOLK_CORE_XML_VALIDATE_ENUMERATION_ERROR, "NOLK_CORE", "XML_VALIDATE_ENUMERATION_ERROR",
     "Enumeration error in: %1%"},
    {&NOLK_CORE_XML_VALIDATE_FIXED_VALUE_ERROR, "NOLK_CORE", "XML_VALIDATE_FIXED_VALUE_ERROR",
     "Fixed Value error in: %1%"},
    {&NOLK_CORE_XML_VALIDATE_FRACTION_DIGITS_ERROR, "NOLK_CORE", "XML_VALIDATE_FRACTION_DIGITS_ERROR",
     "Fraction Digits error in: %1% value = %2% facet value = %3%"},
    {&NOLK_CORE_XML_VALIDATE_LENGTH_ERROR, "NOLK_CORE", "XML_VALIDATE_LENGTH_ERROR",
     "Length error in: %1% value = %2% facet value = %3%"},
    {&NOLK_CORE_XML_VALIDATE_MAX_EXCLUSIVE_ERROR, "NOLK_CORE", "XML_VALIDATE_MAX_EXCLUSIVE_ERROR",
     "maxExclusive error in: %1% value = %2% facet value = %3%"},
    {&NOLK_CORE_XML_VALIDATE_MAX_INCLUSIVE_ERROR, "NOLK_CORE", "XML_VALIDATE_MAX_INCLUSIVE_ERROR",
     "maxInclusive error in: %1% value = %2% facet value = %3%"},
    {&NOLK_CORE_XML_VALIDATE_MAX_LENGTH_ERROR, "NOLK_CORE", "XML_VALIDATE_MAX_LENGTH_ERROR",
     "MaxLength error in: %1% value = %2% facet value = %3%"},
    {&NOLK_CORE_XML_VALIDATE_MIN_EXCLUSIVE_ERROR, "NOLK_CORE", "XML_VALIDATE_MIN_EXCLUSIVE_ERROR",
     "minExclusive error in: %1% value = %2% facet value = %3%"},
    {&NOLK_CORE_XML_VALIDATE_MIN_INCLUSIVE_ERROR, "NOLK_CORE", "XML_VALIDATE_MIN_INCLUSIVE_ERROR",
     "minInclusive error in: %1% value = %2% facet value = %3%"},
    {&NOLK_CORE_XML_VALIDATE_MIN_LENGTH_ERROR, "NOLK_CORE", "XML_VALIDATE_MIN_LENGTH_ERROR",
     "MinLength error in: %1% value = %2% facet value = %3%"},
    {&NOLK_CORE_XML_VALIDATE_PATTERN_ERROR, "NOLK_CORE", "XML_VALIDATE_PATTERN_ERROR",
     "Pattern error in: %1%"},
    {&NOLK_CORE_XML_VALIDATE_TOTAL_DIGITS_ERROR, "NOLK_CORE", "XML_VALIDATE_TOTAL_DIGITS_ERROR",
     "Total Digits error in: %1% value = %2% facet value = %3%"},
};
// clang-format on

// Made by a static initialiser of another library, which this program is to the one under test.
const std::string textAtStart = LocalizedMessage(NOLK_CORE_NO_MEMORY).getMessage();

TEST(MessageIds, ThereAreOneHundredAndThirtyFive) {
    EXPECT_EQ(std::size(rows), 135u);
    std::set<const MessageCatalogId*> distinct;
    for (const Row& row : rows) {
        distinct.insert(row.id);
    }
    EXPECT_EQ(distinct.size(), 135u);
}

TEST(MessageIds, EachHasItsComponentKeyAndText) {
    for (const Row& row : rows) {
        SCOPED_TRACE(row.key);
        EXPECT_STREQ(row.id->component, row.component);
        EXPECT_STREQ(row.id->key, row.key);
        EXPECT_STREQ(row.id->defaultText, row.text);
    }
}

TEST(MessageIds, EachGivesAMessageWithItsKeyAndText) {
    for (const Row& row : rows) {
        const LocalizedMessage text(*row.id);
        EXPECT_EQ(text.getIdentifier(), row.key);
        EXPECT_EQ(text.getMessage(), row.text);
    }
}

TEST(MessageIds, ServeStaticInitialisersOfOtherLibraries) {
    EXPECT_EQ(textAtStart, "No memory");
}

TEST(MessageCatalogId, IsThreePointersThatAnAssignmentTakes) {
    EXPECT_EQ(sizeof(MessageCatalogId), 3 * sizeof(const char*));
    MessageCatalogId assigned("TEST", "KEY", "text");
    assigned = NOLK_CORE_NO_MEMORY;
    EXPECT_EQ(assigned.component, NOLK_CORE_NO_MEMORY.component);
    EXPECT_EQ(assigned.key, NOLK_CORE_NO_MEMORY.key);
    EXPECT_EQ(assigned.defaultText, NOLK_CORE_NO_MEMORY.defaultText);
}

TEST(MessageCatalogId, KeepsTheThreePointersGiven) {
    static const char component[] = "C";
    static const char key[] = "K";
    static const char text[] = "T";
    constexpr MessageCatalogId id(component, key, text);
    const MessageCatalogId copy = id;
    EXPECT_EQ(copy.component, component);
    EXPECT_EQ(copy.key, key);
    EXPECT_EQ(copy.defaultText, text);
    EXPECT_EQ(sizeof(MessageCatalogId), 3 * sizeof(const char*));
}

}  // namespace
}  // namespace nolk
