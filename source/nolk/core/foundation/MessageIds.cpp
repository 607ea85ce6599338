#include <nolk/core/MessageIds.h>

namespace nolk {

// Start and stop of an agent process.
constinit const MessageCatalogId NOLK_AGENT_AGENT_CONFIG_PARSE_ERROR(
    "NOLK_AGENT", "AGENT_CONFIG_PARSE_ERROR",
    "Error parsing agent-startup XML config element: %1%: %2%");
constinit const MessageCatalogId NOLK_AGENT_AGENT_SHUTDOWN_CONFIG_ERROR(
    "NOLK_AGENT", "AGENT_SHUTDOWN_CONFIG_ERROR",
    "Unable to shutdown server, the '%1%' property was not set");
constinit const MessageCatalogId NOLK_AGENT_AGENT_STARTUP_ERROR("NOLK_AGENT", "AGENT_STARTUP_ERROR",
                                                                "Error starting agent: %1%");
constinit const MessageCatalogId NOLK_AGENT_AGENT_STARTUP_ERROR_UNEXPECTED_EXCEPTION(
    "NOLK_AGENT", "AGENT_STARTUP_ERROR_UNEXPECTED_EXCEPTION",
    "Unexpected error starting agent: %1%");
constinit const MessageCatalogId NOLK_AGENT_AGENT_STARTUP_ERROR_UNKNOWN_EXCEPTION(
    "NOLK_AGENT", "AGENT_STARTUP_ERROR_UNKNOWN_EXCEPTION",
    "Unexpected and unknown exception (usually indicates a low-level crash)");
constinit const MessageCatalogId NOLK_AGENT_AGENT_STARTUP_EXECUTE_POST_STARTUP_METHODS_ERROR(
    "NOLK_AGENT", "AGENT_STARTUP_EXECUTE_POST_STARTUP_METHODS_ERROR",
    "Error executing 'postStartup' methods: %1%");
constinit const MessageCatalogId NOLK_AGENT_AGENT_STARTUP_INIT_ERROR(
    "NOLK_AGENT", "AGENT_STARTUP_INIT_ERROR", "Error initializing main agent configuration: %1%");
constinit const MessageCatalogId NOLK_AGENT_AGENT_STARTUP_NO_CONFIG(
    "NOLK_AGENT", "AGENT_STARTUP_NO_CONFIG",
    "Runtime directory [%1%] has no valid '%2%' configuration file");
constinit const MessageCatalogId NOLK_AGENT_AGENT_STARTUP_NO_RUNTIME_PROPERTY(
    "NOLK_AGENT", "AGENT_STARTUP_NO_RUNTIME_PROPERTY",
    "The runtime directory must be set with '-r' or with the 'agent.root' system property");
constinit const MessageCatalogId NOLK_AGENT_AGENT_STARTUP_PARSE_ERROR(
    "NOLK_AGENT", "AGENT_STARTUP_PARSE_ERROR", "Error parsing startup configuration file: %1%");
constinit const MessageCatalogId NOLK_AGENT_AGENT_STARTUP_RESTORE_MESSAGES_ERROR(
    "NOLK_AGENT", "AGENT_STARTUP_RESTORE_MESSAGES_ERROR",
    "Error restoring messages from configured connectors: %1%");
constinit const MessageCatalogId NOLK_AGENT_AGENT_STARTUP_SHUTDOWN_INIT_ERROR(
    "NOLK_AGENT", "AGENT_STARTUP_SHUTDOWN_INIT_ERROR",
    "Error setting up shutdown command listener: The '%1%' property was not set");
constinit const MessageCatalogId NOLK_AGENT_AGENT_STARTUP_START_CONNECTORS_ERROR(
    "NOLK_AGENT", "AGENT_STARTUP_START_CONNECTORS_ERROR",
    "Error starting configured connectors: %1%");

// Casts and bounds of strings and collections.
constinit const MessageCatalogId NOLK_CORE_BAD_CAST("NOLK_CORE", "BAD_CAST", "Bad cast exception.");
constinit const MessageCatalogId NOLK_CORE_BOUNDS_ILLEGAL_INDEX(
    "NOLK_CORE", "BOUNDS_ILLEGAL_INDEX",
    "Illegal Index (%1%) for collection or string with %2% elements");
constinit const MessageCatalogId NOLK_CORE_BOUNDS_INDEX_OUT_OF_RANGE(
    "NOLK_CORE", "BOUNDS_INDEX_OUT_OF_RANGE", "Index (%1%) out of range [0->%2%]");
constinit const MessageCatalogId NOLK_CORE_BOUNDS_STRING_ILLEGAL_SUBSTRING(
    "NOLK_CORE", "BOUNDS_STRING_ILLEGAL_SUBSTRING",
    "Illegal substring (%1%, %2%) from %3% element CString");
constinit const MessageCatalogId NOLK_CORE_BOUNDS_STRING_NPOS("NOLK_CORE", "BOUNDS_STRING_NPOS",
                                                              "String index cannot be 'npos'");

// Conversions between encodings.
constinit const MessageCatalogId NOLK_CORE_CONVERSION_ILLEGAL_SEQUENCE(
    "NOLK_CORE", "CONVERSION_ILLEGAL_SEQUENCE",
    "The byte values at elements %1% through %2% form an illegal encoding sequence");
constinit const MessageCatalogId NOLK_CORE_CONVERSION_INCOMPLETE_SEQUENCE(
    "NOLK_CORE", "CONVERSION_INCOMPLETE_SEQUENCE",
    "The byte values at elements %1% through %2% form an incomplete encoding sequence");
constinit const MessageCatalogId NOLK_CORE_CONVERSION_IRREGULAR_SEQUENCE(
    "NOLK_CORE", "CONVERSION_IRREGULAR_SEQUENCE",
    "The UTF-8 multibyte sequence at elements %1% through %2% encode a non-character value");

// Dates and the default locale.
constinit const MessageCatalogId NOLK_CORE_DATETIME_INVALID_OBJECT(
    "NOLK_CORE", "DATETIME_INVALID_OBJECT", "DateTime: Operation attempted with invalid object");
constinit const MessageCatalogId NOLK_CORE_DATETIME_INVALID_SENTINEL("NOLK_CORE",
                                                                     "DATETIME_INVALID_SENTINEL",
                                                                     "invalid user sentinel");
constinit const MessageCatalogId NOLK_CORE_DEFAULT_LOCALE_NOT_FOUND(
    "NOLK_CORE", "DEFAULT_LOCALE_NOT_FOUND", "Couldn't find default locale: %1%");

// Dynamic libraries and locales read from catalogs.
constinit const MessageCatalogId NOLK_CORE_DYNAMIC_LIBRARY_LOAD_FAILURE(
    "NOLK_CORE", "DYNAMIC_LIBRARY_LOAD_FAILURE", "Unable to load library for : %1%: %2%;");
constinit const MessageCatalogId NOLK_CORE_DYNAMIC_LIBRARY_METHOD_NOT_FOUND(
    "NOLK_CORE", "DYNAMIC_LIBRARY_METHOD_NOT_FOUND", "Unable to find method '%1%' in '%2%'");
constinit const MessageCatalogId NOLK_CORE_ERROR_LOADING_LOCALE(
    "NOLK_CORE", "ERROR_LOADING_LOCALE", "Error loading locale [%1%] and catalog [%2%]: %3%");

// Files.
constinit const MessageCatalogId NOLK_CORE_FILE_CANNOT_RENAME(
    "NOLK_CORE", "FILE_CANNOT_RENAME", "Unable to rename file %1% to %2%: %3%");
constinit const MessageCatalogId NOLK_CORE_FILE_COULDNT_CHMOD("NOLK_CORE", "FILE_COULDNT_CHMOD",
                                                              "File %1% could not be chmod'd: %2%");
constinit const MessageCatalogId NOLK_CORE_FILE_COULDNT_MOVE("NOLK_CORE", "FILE_COULDNT_MOVE",
                                                             "Error moving file: %1% to: %2%: %3%");
constinit const MessageCatalogId NOLK_CORE_FILE_COULDNT_STAT("NOLK_CORE", "FILE_COULDNT_STAT",
                                                             "File %1% could not be stat'd: %2%");
constinit const MessageCatalogId NOLK_CORE_FILE_COULDNT_WRITE(
    "NOLK_CORE", "FILE_COULDNT_WRITE", "File %1% could not be opened for writing: %2%");
constinit const MessageCatalogId NOLK_CORE_FILE_INVALID_MODE(
    "NOLK_CORE", "FILE_INVALID_MODE", "Null pointer or empty string specified for mode.");
constinit const MessageCatalogId NOLK_CORE_FILE_INVALID_STREAM(
    "NOLK_CORE", "FILE_INVALID_STREAM", "A valid file stream was never created.");
constinit const MessageCatalogId NOLK_CORE_FILE_NAME_EMPTY_STRING(
    "NOLK_CORE", "FILE_NAME_EMPTY_STRING", "Empty string specified for filename.");
constinit const MessageCatalogId NOLK_CORE_FILE_NOT_FOUND("NOLK_CORE", "FILE_NOT_FOUND",
                                                          "File %1% not found");
constinit const MessageCatalogId NOLK_CORE_FILE_OPEN_FAILED("NOLK_CORE", "FILE_OPEN_FAILED",
                                                            "Unable to open file: %1%");

// Message handling of an agent.
constinit const MessageCatalogId NOLK_AGENT_HANDLER_KEY_NOT_FOUND(
    "NOLK_AGENT", "HANDLER_KEY_NOT_FOUND", "MessageInfo key '%1%' not found");
constinit const MessageCatalogId NOLK_AGENT_HTTP_NOT_HTTP_REQUEST(
    "NOLK_AGENT", "HTTP_NOT_HTTP_REQUEST",
    "Received a non-HTTP message on the HTTP connector.  Ignoring.");

// Invalid values.
constinit const MessageCatalogId NOLK_CORE_INVALID_BASE64("NOLK_CORE", "INVALID_BASE64",
                                                          "Invalid base64 encoded character");
constinit const MessageCatalogId NOLK_CORE_INVALID_BOOLEAN("NOLK_CORE", "INVALID_BOOLEAN",
                                                           "Invalid boolean: %1%");
constinit const MessageCatalogId NOLK_CORE_INVALID_ID("NOLK_CORE", "INVALID_ID",
                                                      "Unrecognized message identifier: %1%");
constinit const MessageCatalogId NOLK_CORE_INVALID_ITERATOR("NOLK_CORE", "INVALID_ITERATOR",
                                                            "Invalid iterator");
constinit const MessageCatalogId NOLK_CORE_INVALID_USAGE("NOLK_CORE", "INVALID_USAGE",
                                                         "Invalid Usage");

// Logging and naming.
constinit const MessageCatalogId NOLK_CORE_LOGGER_MANAGER_NOT_INITIALIZED(
    "NOLK_CORE", "LOGGER_MANAGER_NOT_INITIALIZED", "nolk::LogManager not initialized.");
constinit const MessageCatalogId NOLK_CORE_LOGGER_MISSING_CONFIG_PARAMETER(
    "NOLK_CORE", "LOGGER_MISSING_CONFIG_PARAMETER",
    "Logger module missing required parameter: %1%");
constinit const MessageCatalogId NOLK_CORE_NAMING_COULDNT_LOAD("NOLK_CORE", "NAMING_COULDNT_LOAD",
                                                               "Couldn't load: %1%");
constinit const MessageCatalogId NOLK_CORE_NAMING_CREATE_METHOD_ERROR(
    "NOLK_CORE", "NAMING_CREATE_METHOD_ERROR",
    "Error while loading named obejct [%1%], creation method not found: %2%");
constinit const MessageCatalogId NOLK_CORE_NAMING_LIBRARY_ERROR(
    "NOLK_CORE", "NAMING_LIBRARY_ERROR",
    "Error while loading named object [%1%], couldn't load DLL [%2%]: %3%");
constinit const MessageCatalogId NOLK_CORE_NAMING_NAME_ALREADY_EXISTS("NOLK_CORE",
                                                                      "NAMING_NAME_ALREADY_EXISTS",
                                                                      "Name: %1% already exists");

// General failures.
constinit const MessageCatalogId NOLK_CORE_NO_ERROR("NOLK_CORE", "NO_ERROR", "No Error");
constinit const MessageCatalogId NOLK_CORE_NO_MEMORY("NOLK_CORE", "NO_MEMORY", "No memory");
constinit const MessageCatalogId NOLK_CORE_NOT_IMPLEMENTED("NOLK_CORE", "NOT_IMPLEMENTED",
                                                           "Function not implemented: %1%");
constinit const MessageCatalogId NOLK_CORE_NULL_POINTER("NOLK_CORE", "NULL_POINTER",
                                                        "Attempt to dereference a null pointer");

// Queues.
constinit const MessageCatalogId NOLK_CORE_QUEUE_CLOSED("NOLK_CORE", "QUEUE_CLOSED",
                                                        "Queue closed");
constinit const MessageCatalogId NOLK_CORE_QUEUE_EMPTY("NOLK_CORE", "QUEUE_EMPTY", "Queue empty");
constinit const MessageCatalogId NOLK_CORE_QUEUE_WRITE_CLOSED("NOLK_CORE", "QUEUE_WRITE_CLOSED",
                                                              "Queue closed for write");

// Regular expressions.
constinit const MessageCatalogId NOLK_CORE_REGEX_ASCII_ERROR("NOLK_CORE", "REGEX_ASCII_ERROR",
                                                             "ASCII Conversion Error");
constinit const MessageCatalogId NOLK_CORE_REGEX_CONSECUTIVE_CARDINALITIES(
    "NOLK_CORE", "REGEX_CONSECUTIVE_CARDINALITIES", "Consecutive cardinalities");
constinit const MessageCatalogId NOLK_CORE_REGEX_INFINITE_CARDINALITY(
    "NOLK_CORE", "REGEX_INFINITE_CARDINALITY", "Infinite cardinality on potentially empty match");
constinit const MessageCatalogId NOLK_CORE_REGEX_INFINTE_CATEGORY_NAME(
    "NOLK_CORE", "REGEX_INFINTE_CATEGORY_NAME", "Never-ending category name");
constinit const MessageCatalogId NOLK_CORE_REGEX_INSUFFICIENT_16BIT_DATA(
    "NOLK_CORE", "REGEX_INSUFFICIENT_16BIT_DATA",
    "Inusfficient data for 16-bit hex escape sequence");
constinit const MessageCatalogId NOLK_CORE_REGEX_INSUFFICIENT_8BIT_DATA(
    "NOLK_CORE", "REGEX_INSUFFICIENT_8BIT_DATA", "Inusfficient data for 8-bit hex escape sequence");
constinit const MessageCatalogId NOLK_CORE_REGEX_INVALID_CARDINATLIY_RANGE(
    "NOLK_CORE", "REGEX_INVALID_CARDINATLIY_RANGE", "Invalid cardinality range");
constinit const MessageCatalogId NOLK_CORE_REGEX_INVALID_CATEGORY("NOLK_CORE",
                                                                  "REGEX_INVALID_CATEGORY",
                                                                  "Invalid category name");
constinit const MessageCatalogId NOLK_CORE_REGEX_INVALID_DATA_AFTER_PIPE(
    "NOLK_CORE", "REGEX_INVALID_DATA_AFTER_PIPE", "Invalid data after |");
constinit const MessageCatalogId NOLK_CORE_REGEX_INVALID_DATA_BEFORE_PIPE(
    "NOLK_CORE", "REGEX_INVALID_DATA_BEFORE_PIPE", "Invalid data before |");
constinit const MessageCatalogId NOLK_CORE_REGEX_INVALID_DECIMAL("NOLK_CORE",
                                                                 "REGEX_INVALID_DECIMAL",
                                                                 "Invalid decimal digit");
constinit const MessageCatalogId NOLK_CORE_REGEX_INVALID_HEX("NOLK_CORE", "REGEX_INVALID_HEX",
                                                             "Invalid hex nibble");
constinit const MessageCatalogId NOLK_CORE_REGEX_INVALID_SUBEXPRESSION(
    "NOLK_CORE", "REGEX_INVALID_SUBEXPRESSION", "Invalid sub-expression");
constinit const MessageCatalogId NOLK_CORE_REGEX_LEADING_CARDINATLIY("NOLK_CORE",
                                                                     "REGEX_LEADING_CARDINATLIY",
                                                                     "Leading cardinality");
constinit const MessageCatalogId NOLK_CORE_REGEX_MISSING_CLOSING_BRACE(
    "NOLK_CORE", "REGEX_MISSING_CLOSING_BRACE", "Missing closing curly brace");
constinit const MessageCatalogId NOLK_CORE_REGEX_MISSING_CLOSING_BRACKET(
    "NOLK_CORE", "REGEX_MISSING_CLOSING_BRACKET", "Missing closing bracket");
constinit const MessageCatalogId NOLK_CORE_REGEX_MISSING_CLOSING_PAREN(
    "NOLK_CORE", "REGEX_MISSING_CLOSING_PAREN", "Missing closing parenthesis");
constinit const MessageCatalogId NOLK_CORE_REGEX_MISSING_ESCAPE("NOLK_CORE", "REGEX_MISSING_ESCAPE",
                                                                "Missing escape sequence");
constinit const MessageCatalogId NOLK_CORE_REGEX_NO_ERROR("NOLK_CORE", "REGEX_NO_ERROR",
                                                          "No error");
constinit const MessageCatalogId NOLK_CORE_REGEX_UNMATCHED_CLOSING_BRACE(
    "NOLK_CORE", "REGEX_UNMATCHED_CLOSING_BRACE", "Unmatched closing curly brace");
constinit const MessageCatalogId NOLK_CORE_REGEX_UNMATCHED_CLOSING_PAREN(
    "NOLK_CORE", "REGEX_UNMATCHED_CLOSING_PAREN", "Unmatched closing parenthesis");

// Stacks and the system.
constinit const MessageCatalogId NOLK_CORE_STACK_UNDERFLOW("NOLK_CORE", "STACK_UNDERFLOW",
                                                           "Stack underflow");
constinit const MessageCatalogId NOLK_CORE_SYSTEM_ERROR("NOLK_CORE", "SYSTEM_ERROR",
                                                        "System error: %1%");

// Threads.
constinit const MessageCatalogId NOLK_CORE_THREAD_ALREADY_STARTED(
    "NOLK_CORE", "THREAD_ALREADY_STARTED", "Thread Start Failed: Already executed");
constinit const MessageCatalogId NOLK_CORE_THREAD_ATTRIBUTE_CREATE_FAILED(
    "NOLK_CORE", "THREAD_ATTRIBUTE_CREATE_FAILED", "Thread Attribute Create Failed: %1%");
constinit const MessageCatalogId NOLK_CORE_THREAD_CREATE_FAILED("NOLK_CORE", "THREAD_CREATE_FAILED",
                                                                "Thread Create Failed: %1%");
constinit const MessageCatalogId NOLK_CORE_THREAD_GENERAL_ERROR("NOLK_CORE", "THREAD_GENERAL_ERROR",
                                                                "Thread error: %1%");
constinit const MessageCatalogId NOLK_CORE_THREAD_IOU_CLOSED("NOLK_CORE", "THREAD_IOU_CLOSED",
                                                             "IOU already closed");
constinit const MessageCatalogId NOLK_CORE_THREAD_JOIN_FAILED("NOLK_CORE", "THREAD_JOIN_FAILED",
                                                              "Thread Join Failed: %1%");
constinit const MessageCatalogId NOLK_CORE_THREAD_JOIN_FAILED_THREAD_HANDLE(
    "NOLK_CORE", "THREAD_JOIN_FAILED_THREAD_HANDLE",
    "Thread Join Failed: Unable to close Thread Handle");
constinit const MessageCatalogId NOLK_CORE_THREAD_JOIN_FAILED_TIMEOUT(
    "NOLK_CORE", "THREAD_JOIN_FAILED_TIMEOUT", "Thread Join Failed: Timeout Exceeded");
constinit const MessageCatalogId NOLK_CORE_THREAD_STACK_RESIZE_FAILURE(
    "NOLK_CORE", "THREAD_STACK_RESIZE_FAILURE", "Thread Stack Resize Failed: %1%");

// Unexpected failures and quoted text.
constinit const MessageCatalogId NOLK_CORE_UNEXPECTED_ERROR("NOLK_CORE", "UNEXPECTED_ERROR",
                                                            "Unexpected Exception");
constinit const MessageCatalogId NOLK_CORE_UTILITY_UNMATCHED_DOUBLE_QUOTE(
    "NOLK_CORE", "UTILITY_UNMATCHED_DOUBLE_QUOTE", "Unmatched double-quote string: %1%");
constinit const MessageCatalogId NOLK_CORE_UTILITY_UNMATCHED_SINGLE_QUOTE(
    "NOLK_CORE", "UTILITY_UNMATCHED_SINGLE_QUOTE", "Unmatched single-quote string: %1%");

// XML in general.
constinit const MessageCatalogId NOLK_CORE_XML_CHARSET_CONVERSION_FAILED(
    "NOLK_CORE", "XML_CHARSET_CONVERSION_FAILED", "Character set conversion failed: %1%");
constinit const MessageCatalogId NOLK_CORE_XML_CONVERSION_UNAVAILABLE(
    "NOLK_CORE", "XML_CONVERSION_UNAVAILABLE",
    "No conversion library[%1%] available from \"%2%\" to \"%3%\"");
constinit const MessageCatalogId NOLK_CORE_XML_NO_FIELDS("NOLK_CORE", "XML_NO_FIELDS",
                                                         "No entry for fields.");
constinit const MessageCatalogId NOLK_CORE_XML_NO_KEY_MAP("NOLK_CORE", "XML_NO_KEY_MAP",
                                                          "No key map.");

// XML parsing.
constinit const MessageCatalogId NOLK_CORE_XML_PARSE_ATTRIBUTE_INVALID_CHAR(
    "NOLK_CORE", "XML_PARSE_ATTRIBUTE_INVALID_CHAR", "invalid character in attribute definition");
constinit const MessageCatalogId NOLK_CORE_XML_PARSE_ATTRIBUTE_NOT_FOUND(
    "NOLK_CORE", "XML_PARSE_ATTRIBUTE_NOT_FOUND", "Unable to find attribute: %1%");
constinit const MessageCatalogId NOLK_CORE_XML_PARSE_ATTRIBUTE_NOT_FOUND_IN_ELEMENT(
    "NOLK_CORE", "XML_PARSE_ATTRIBUTE_NOT_FOUND_IN_ELEMENT",
    "Parsing %1%: Unable to find attribute: %2% in element: %3%");
constinit const MessageCatalogId NOLK_CORE_XML_PARSE_ATTRIBUTE_UNTERMINATED_VALUE(
    "NOLK_CORE", "XML_PARSE_ATTRIBUTE_UNTERMINATED_VALUE",
    "Syntax error: unterminated attribute value");
constinit const MessageCatalogId NOLK_CORE_XML_PARSE_CLOSING_TAG_NOT_FOUND(
    "NOLK_CORE", "XML_PARSE_CLOSING_TAG_NOT_FOUND", "Unexpected EOF looking for closing tag.");
constinit const MessageCatalogId NOLK_CORE_XML_PARSE_COMMENT_INVALID_DASH(
    "NOLK_CORE", "XML_PARSE_COMMENT_INVALID_DASH", "Invalid -- inside comment");
constinit const MessageCatalogId NOLK_CORE_XML_PARSE_COMMENT_SYNTAX_ERROR(
    "NOLK_CORE", "XML_PARSE_COMMENT_SYNTAX_ERROR", "Syntax error on comment");
constinit const MessageCatalogId NOLK_CORE_XML_PARSE_ELEMENT_WITHIN_CANT(
    "NOLK_CORE", "XML_PARSE_ELEMENT_WITHIN_CANT",
    "Parsing %1%: %2% element(s) cannot appear within a(n) %3% element");
constinit const MessageCatalogId NOLK_CORE_XML_PARSE_ELEMENT_WITHIN_MUST(
    "NOLK_CORE", "XML_PARSE_ELEMENT_WITHIN_MUST",
    "Parsing %1%: %2% element(s) can only appear within a(n) %3% element");
constinit const MessageCatalogId NOLK_CORE_XML_PARSE_ILLEGAL_NAME(
    "NOLK_CORE", "XML_PARSE_ILLEGAL_NAME", "Illegal starting character for name: %1%");
constinit const MessageCatalogId NOLK_CORE_XML_PARSE_INVALID_CDATA_DIRECTIVE(
    "NOLK_CORE", "XML_PARSE_INVALID_CDATA_DIRECTIVE", "'<![' wasnt followed by 'CDATA'");
constinit const MessageCatalogId NOLK_CORE_XML_PARSE_INVALID_CHAR_IN_REFERENCE(
    "NOLK_CORE", "XML_PARSE_INVALID_CHAR_IN_REFERENCE",
    "invalid character in hexadecimal character reference.");
constinit const MessageCatalogId NOLK_CORE_XML_PARSE_INVALID_FIRST_CHAR(
    "NOLK_CORE", "XML_PARSE_INVALID_FIRST_CHAR", "First non-ws character in document wasn't '<'");
constinit const MessageCatalogId NOLK_CORE_XML_PARSE_INVALID_SEQUENCE(
    "NOLK_CORE", "XML_PARSE_INVALID_SEQUENCE", "Invalid character sequence <!%1%");
constinit const MessageCatalogId NOLK_CORE_XML_PARSE_INVALID_SLASH("NOLK_CORE",
                                                                   "XML_PARSE_INVALID_SLASH",
                                                                   "Invalid '/' found in tag");
constinit const MessageCatalogId NOLK_CORE_XML_PARSE_MISSING_NAMESPACE(
    "NOLK_CORE", "XML_PARSE_MISSING_NAMESPACE", "Missing namespace definition: %1%");
constinit const MessageCatalogId NOLK_CORE_XML_PARSE_NO_END_TAG("NOLK_CORE", "XML_PARSE_NO_END_TAG",
                                                                "Couldn't find end tag: %1%");
constinit const MessageCatalogId NOLK_CORE_XML_PARSE_NO_START_TAG("NOLK_CORE",
                                                                  "XML_PARSE_NO_START_TAG",
                                                                  "Couldn't find start tag: %1%");
constinit const MessageCatalogId NOLK_CORE_XML_PARSE_PREMATURE_EOF("NOLK_CORE",
                                                                   "XML_PARSE_PREMATURE_EOF",
                                                                   "Premature EOF");
constinit const MessageCatalogId NOLK_CORE_XML_PARSE_PREMATURE_EOF_INSIDE_CHAR(
    "NOLK_CORE", "XML_PARSE_PREMATURE_EOF_INSIDE_CHAR", "Premature EOF inside character");
constinit const MessageCatalogId NOLK_CORE_XML_PARSE_UNEXPECTED_CHAR("NOLK_CORE",
                                                                     "XML_PARSE_UNEXPECTED_CHAR",
                                                                     "Unexpected character %1%");
constinit const MessageCatalogId NOLK_CORE_XML_PARSE_UNEXPECTED_ELEMENT(
    "NOLK_CORE", "XML_PARSE_UNEXPECTED_ELEMENT", "Expected %1%, found %2%");
constinit const MessageCatalogId NOLK_CORE_XML_PARSE_UNKNOWN_PROLOG("NOLK_CORE",
                                                                    "XML_PARSE_UNKNOWN_PROLOG",
                                                                    "Unknown prolog tag");
constinit const MessageCatalogId NOLK_CORE_XML_PARSE_UNMATCHED_START("NOLK_CORE",
                                                                     "XML_PARSE_UNMATCHED_START",
                                                                     "Unmatched start tag for %1%");

// XML transcoding.
constinit const MessageCatalogId NOLK_CORE_XML_TRANSCODE_FAILED(
    "NOLK_CORE", "XML_TRANSCODE_FAILED", "Couldn't transcode from input encoding '%1%': %2%");
constinit const MessageCatalogId NOLK_CORE_XML_TRANSCODE_FROM_DECL_FAILED(
    "NOLK_CORE", "XML_TRANSCODE_FROM_DECL_FAILED",
    "Encoding to based on character-encoding identifier '%1%' failed.  Please verify encoding "
    "decleration.");

// XML Schema facets.
constinit const MessageCatalogId NOLK_CORE_XML_VALIDATE_BOUNDS_ERROR(
    "NOLK_CORE", "XML_VALIDATE_BOUNDS_ERROR",
    "Bounds error in: %1% size = %2% minOccurs = %3% maxOccurs = %4%");
constinit const MessageCatalogId NOLK_CORE_XML_VALIDATE_ENUMERATION_ERROR(
    "NOLK_CORE", "XML_VALIDATE_ENUMERATION_ERROR", "Enumeration error in: %1%");
constinit const MessageCatalogId NOLK_CORE_XML_VALIDATE_FIXED_VALUE_ERROR(
    "NOLK_CORE", "XML_VALIDATE_FIXED_VALUE_ERROR", "Fixed Value error in: %1%");
constinit const MessageCatalogId NOLK_CORE_XML_VALIDATE_FRACTION_DIGITS_ERROR(
    "NOLK_CORE", "XML_VALIDATE_FRACTION_DIGITS_ERROR",
    "Fraction Digits error in: %1% value = %2% facet value = %3%");
constinit const MessageCatalogId NOLK_CORE_XML_VALIDATE_LENGTH_ERROR(
    "NOLK_CORE", "XML_VALIDATE_LENGTH_ERROR", "Length error in: %1% value = %2% facet value = %3%");
constinit const MessageCatalogId NOLK_CORE_XML_VALIDATE_MAX_EXCLUSIVE_ERROR(
    "NOLK_CORE", "XML_VALIDATE_MAX_EXCLUSIVE_ERROR",
    "maxExclusive error in: %1% value = %2% facet value = %3%");
constinit const MessageCatalogId NOLK_CORE_XML_VALIDATE_MAX_INCLUSIVE_ERROR(
    "NOLK_CORE", "XML_VALIDATE_MAX_INCLUSIVE_ERROR",
    "maxInclusive error in: %1% value = %2% facet value = %3%");
constinit const MessageCatalogId NOLK_CORE_XML_VALIDATE_MAX_LENGTH_ERROR(
    "NOLK_CORE", "XML_VALIDATE_MAX_LENGTH_ERROR",
    "MaxLength error in: %1% value = %2% facet value = %3%");
constinit const MessageCatalogId NOLK_CORE_XML_VALIDATE_MIN_EXCLUSIVE_ERROR(
    "NOLK_CORE", "XML_VALIDATE_MIN_EXCLUSIVE_ERROR",
    "minExclusive error in: %1% value = %2% facet value = %3%");
constinit const MessageCatalogId NOLK_CORE_XML_VALIDATE_MIN_INCLUSIVE_ERROR(
    "NOLK_CORE", "XML_VALIDATE_MIN_INCLUSIVE_ERROR",
    "minInclusive error in: %1% value = %2% facet value = %3%");
constinit const MessageCatalogId NOLK_CORE_XML_VALIDATE_MIN_LENGTH_ERROR(
    "NOLK_CORE", "XML_VALIDATE_MIN_LENGTH_ERROR",
    "MinLength error in: %1% value = %2% facet value = %3%");
constinit const MessageCatalogId NOLK_CORE_XML_VALIDATE_PATTERN_ERROR("NOLK_CORE",
                                                                      "XML_VALIDATE_PATTERN_ERROR",
                                                                      "Pattern error in: %1%");
constinit const MessageCatalogId NOLK_CORE_XML_VALIDATE_TOTAL_DIGITS_ERROR(
    "NOLK_CORE", "XML_VALIDATE_TOTAL_DIGITS_ERROR",
    "Total Digits error in: %1% value = %2% facet value = %3%");

}  // namespace nolk
