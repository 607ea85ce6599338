/** @file
 * The built-in messages: one exported constant for each.
 *
 * A constant's name is its component, an underscore and its key, so NOLK_CORE_NO_MEMORY stands for
 * the key "NO_MEMORY" of the component "NOLK_CORE". All are initialised at compile time and may be
 * used from static initialisers. Their texts, with the placeholders "%1%", "%2%" and so on, stand
 * in MessageIds.cpp; the misspelt names are part of the interface.
 */
#ifndef NOLK_CORE_MESSAGE_IDS_H
#define NOLK_CORE_MESSAGE_IDS_H

#include <nolk/core/Export.h>
#include <nolk/core/MessageCatalogId.h>

namespace nolk {

/** @name Start and stop of an agent process
 *  @{ */
NOLK_API extern const MessageCatalogId NOLK_AGENT_AGENT_CONFIG_PARSE_ERROR;
NOLK_API extern const MessageCatalogId NOLK_AGENT_AGENT_SHUTDOWN_CONFIG_ERROR;
NOLK_API extern const MessageCatalogId NOLK_AGENT_AGENT_STARTUP_ERROR;
NOLK_API extern const MessageCatalogId NOLK_AGENT_AGENT_STARTUP_ERROR_UNEXPECTED_EXCEPTION;
NOLK_API extern const MessageCatalogId NOLK_AGENT_AGENT_STARTUP_ERROR_UNKNOWN_EXCEPTION;
NOLK_API extern const MessageCatalogId NOLK_AGENT_AGENT_STARTUP_EXECUTE_POST_STARTUP_METHODS_ERROR;
NOLK_API extern const MessageCatalogId NOLK_AGENT_AGENT_STARTUP_INIT_ERROR;
NOLK_API extern const MessageCatalogId NOLK_AGENT_AGENT_STARTUP_NO_CONFIG;
NOLK_API extern const MessageCatalogId NOLK_AGENT_AGENT_STARTUP_NO_RUNTIME_PROPERTY;
NOLK_API extern const MessageCatalogId NOLK_AGENT_AGENT_STARTUP_PARSE_ERROR;
NOLK_API extern const MessageCatalogId NOLK_AGENT_AGENT_STARTUP_RESTORE_MESSAGES_ERROR;
NOLK_API extern const MessageCatalogId NOLK_AGENT_AGENT_STARTUP_SHUTDOWN_INIT_ERROR;
NOLK_API extern const MessageCatalogId NOLK_AGENT_AGENT_STARTUP_START_CONNECTORS_ERROR;
/** @} */

/** @name Casts and bounds of strings and collections
 *  @{ */
NOLK_API extern const MessageCatalogId NOLK_CORE_BAD_CAST;
NOLK_API extern const MessageCatalogId NOLK_CORE_BOUNDS_ILLEGAL_INDEX;
NOLK_API extern const MessageCatalogId NOLK_CORE_BOUNDS_INDEX_OUT_OF_RANGE;
NOLK_API extern const MessageCatalogId NOLK_CORE_BOUNDS_STRING_ILLEGAL_SUBSTRING;
NOLK_API extern const MessageCatalogId NOLK_CORE_BOUNDS_STRING_NPOS;
/** @} */

/** @name Conversions between encodings
 *  @{ */
NOLK_API extern const MessageCatalogId NOLK_CORE_CONVERSION_ILLEGAL_SEQUENCE;
NOLK_API extern const MessageCatalogId NOLK_CORE_CONVERSION_INCOMPLETE_SEQUENCE;
NOLK_API extern const MessageCatalogId NOLK_CORE_CONVERSION_IRREGULAR_SEQUENCE;
/** @} */

/** @name Dates and the default locale
 *  @{ */
NOLK_API extern const MessageCatalogId NOLK_CORE_DATETIME_INVALID_OBJECT;
NOLK_API extern const MessageCatalogId NOLK_CORE_DATETIME_INVALID_SENTINEL;
NOLK_API extern const MessageCatalogId NOLK_CORE_DEFAULT_LOCALE_NOT_FOUND;
/** @} */

/** @name Dynamic libraries and locales read from catalogs
 *  @{ */
NOLK_API extern const MessageCatalogId NOLK_CORE_DYNAMIC_LIBRARY_LOAD_FAILURE;
NOLK_API extern const MessageCatalogId NOLK_CORE_DYNAMIC_LIBRARY_METHOD_NOT_FOUND;
NOLK_API extern const MessageCatalogId NOLK_CORE_ERROR_LOADING_LOCALE;
/** @} */

/** @name Files
 *  @{ */
NOLK_API extern const MessageCatalogId NOLK_CORE_FILE_CANNOT_RENAME;
NOLK_API extern const MessageCatalogId NOLK_CORE_FILE_COULDNT_CHMOD;
NOLK_API extern const MessageCatalogId NOLK_CORE_FILE_COULDNT_MOVE;
NOLK_API extern const MessageCatalogId NOLK_CORE_FILE_COULDNT_STAT;
NOLK_API extern const MessageCatalogId NOLK_CORE_FILE_COULDNT_WRITE;
NOLK_API extern const MessageCatalogId NOLK_CORE_FILE_INVALID_MODE;
NOLK_API extern const MessageCatalogId NOLK_CORE_FILE_INVALID_STREAM;
NOLK_API extern const MessageCatalogId NOLK_CORE_FILE_NAME_EMPTY_STRING;
NOLK_API extern const MessageCatalogId NOLK_CORE_FILE_NOT_FOUND;
NOLK_API extern const MessageCatalogId NOLK_CORE_FILE_OPEN_FAILED;
/** @} */

/** @name Message handling of an agent
 *  @{ */
NOLK_API extern const MessageCatalogId NOLK_AGENT_HANDLER_KEY_NOT_FOUND;
NOLK_API extern const MessageCatalogId NOLK_AGENT_HTTP_NOT_HTTP_REQUEST;
/** @} */

/** @name Invalid values
 *  @{ */
NOLK_API extern const MessageCatalogId NOLK_CORE_INVALID_BASE64;
NOLK_API extern const MessageCatalogId NOLK_CORE_INVALID_BOOLEAN;
NOLK_API extern const MessageCatalogId NOLK_CORE_INVALID_ID;
NOLK_API extern const MessageCatalogId NOLK_CORE_INVALID_ITERATOR;
NOLK_API extern const MessageCatalogId NOLK_CORE_INVALID_USAGE;
/** @} */

/** @name Logging and naming
 *  @{ */
NOLK_API extern const MessageCatalogId NOLK_CORE_LOGGER_MANAGER_NOT_INITIALIZED;
NOLK_API extern const MessageCatalogId NOLK_CORE_LOGGER_MISSING_CONFIG_PARAMETER;
NOLK_API extern const MessageCatalogId NOLK_CORE_NAMING_COULDNT_LOAD;
NOLK_API extern const MessageCatalogId NOLK_CORE_NAMING_CREATE_METHOD_ERROR;
NOLK_API extern const MessageCatalogId NOLK_CORE_NAMING_LIBRARY_ERROR;
NOLK_API extern const MessageCatalogId NOLK_CORE_NAMING_NAME_ALREADY_EXISTS;
/** @} */

/** @name General failures
 *  @{ */
NOLK_API extern const MessageCatalogId NOLK_CORE_NO_ERROR;
NOLK_API extern const MessageCatalogId NOLK_CORE_NO_MEMORY;
NOLK_API extern const MessageCatalogId NOLK_CORE_NOT_IMPLEMENTED;
NOLK_API extern const MessageCatalogId NOLK_CORE_NULL_POINTER;
/** @} */

/** @name Queues
 *  @{ */
NOLK_API extern const MessageCatalogId NOLK_CORE_QUEUE_CLOSED;
NOLK_API extern const MessageCatalogId NOLK_CORE_QUEUE_EMPTY;
NOLK_API extern const MessageCatalogId NOLK_CORE_QUEUE_WRITE_CLOSED;
/** @} */

/** @name Regular expressions
 *  @{ */
NOLK_API extern const MessageCatalogId NOLK_CORE_REGEX_ASCII_ERROR;
NOLK_API extern const MessageCatalogId NOLK_CORE_REGEX_CONSECUTIVE_CARDINALITIES;
NOLK_API extern const MessageCatalogId NOLK_CORE_REGEX_INFINITE_CARDINALITY;
NOLK_API extern const MessageCatalogId NOLK_CORE_REGEX_INFINTE_CATEGORY_NAME;
NOLK_API extern const MessageCatalogId NOLK_CORE_REGEX_INSUFFICIENT_16BIT_DATA;
NOLK_API extern const MessageCatalogId NOLK_CORE_REGEX_INSUFFICIENT_8BIT_DATA;
NOLK_API extern const MessageCatalogId NOLK_CORE_REGEX_INVALID_CARDINATLIY_RANGE;
NOLK_API extern const MessageCatalogId NOLK_CORE_REGEX_INVALID_CATEGORY;
NOLK_API extern const MessageCatalogId NOLK_CORE_REGEX_INVALID_DATA_AFTER_PIPE;
NOLK_API extern const MessageCatalogId NOLK_CORE_REGEX_INVALID_DATA_BEFORE_PIPE;
NOLK_API extern const MessageCatalogId NOLK_CORE_REGEX_INVALID_DECIMAL;
NOLK_API extern const MessageCatalogId NOLK_CORE_REGEX_INVALID_HEX;
NOLK_API extern const MessageCatalogId NOLK_CORE_REGEX_INVALID_SUBEXPRESSION;
NOLK_API extern const MessageCatalogId NOLK_CORE_REGEX_LEADING_CARDINATLIY;
NOLK_API extern const MessageCatalogId NOLK_CORE_REGEX_MISSING_CLOSING_BRACE;
NOLK_API extern const MessageCatalogId NOLK_CORE_REGEX_MISSING_CLOSING_BRACKET;
NOLK_API extern const MessageCatalogId NOLK_CORE_REGEX_MISSING_CLOSING_PAREN;
NOLK_API extern const MessageCatalogId NOLK_CORE_REGEX_MISSING_ESCAPE;
NOLK_API extern const MessageCatalogId NOLK_CORE_REGEX_NO_ERROR;
NOLK_API extern const MessageCatalogId NOLK_CORE_REGEX_UNMATCHED_CLOSING_BRACE;
NOLK_API extern const MessageCatalogId NOLK_CORE_REGEX_UNMATCHED_CLOSING_PAREN;
/** @} */

/** @name Stacks and the system
 *  @{ */
NOLK_API extern const MessageCatalogId NOLK_CORE_STACK_UNDERFLOW;
NOLK_API extern const MessageCatalogId NOLK_CORE_SYSTEM_ERROR;
/** @} */

/** @name Threads
 *  @{ */
NOLK_API extern const MessageCatalogId NOLK_CORE_THREAD_ALREADY_STARTED;
NOLK_API extern const MessageCatalogId NOLK_CORE_THREAD_ATTRIBUTE_CREATE_FAILED;
NOLK_API extern const MessageCatalogId NOLK_CORE_THREAD_CREATE_FAILED;
NOLK_API extern const MessageCatalogId NOLK_CORE_THREAD_GENERAL_ERROR;
NOLK_API extern const MessageCatalogId NOLK_CORE_THREAD_IOU_CLOSED;
NOLK_API extern const MessageCatalogId NOLK_CORE_THREAD_JOIN_FAILED;
NOLK_API extern const MessageCatalogId NOLK_CORE_THREAD_JOIN_FAILED_THREAD_HANDLE;
NOLK_API extern const MessageCatalogId NOLK_CORE_THREAD_JOIN_FAILED_TIMEOUT;
NOLK_API extern const MessageCatalogId NOLK_CORE_THREAD_STACK_RESIZE_FAILURE;
/** @} */

/** @name Unexpected failures and quoted text
 *  @{ */
NOLK_API extern const MessageCatalogId NOLK_CORE_UNEXPECTED_ERROR;
NOLK_API extern const MessageCatalogId NOLK_CORE_UTILITY_UNMATCHED_DOUBLE_QUOTE;
NOLK_API extern const MessageCatalogId NOLK_CORE_UTILITY_UNMATCHED_SINGLE_QUOTE;
/** @} */

/** @name XML in general
 *  @{ */
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_CHARSET_CONVERSION_FAILED;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_CONVERSION_UNAVAILABLE;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_NO_FIELDS;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_NO_KEY_MAP;
/** @} */

/** @name XML parsing
 *  @{ */
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_PARSE_ATTRIBUTE_INVALID_CHAR;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_PARSE_ATTRIBUTE_NOT_FOUND;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_PARSE_ATTRIBUTE_NOT_FOUND_IN_ELEMENT;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_PARSE_ATTRIBUTE_UNTERMINATED_VALUE;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_PARSE_CLOSING_TAG_NOT_FOUND;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_PARSE_COMMENT_INVALID_DASH;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_PARSE_COMMENT_SYNTAX_ERROR;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_PARSE_ELEMENT_WITHIN_CANT;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_PARSE_ELEMENT_WITHIN_MUST;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_PARSE_ILLEGAL_NAME;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_PARSE_INVALID_CDATA_DIRECTIVE;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_PARSE_INVALID_CHAR_IN_REFERENCE;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_PARSE_INVALID_FIRST_CHAR;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_PARSE_INVALID_SEQUENCE;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_PARSE_INVALID_SLASH;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_PARSE_MISSING_NAMESPACE;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_PARSE_NO_END_TAG;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_PARSE_NO_START_TAG;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_PARSE_PREMATURE_EOF;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_PARSE_PREMATURE_EOF_INSIDE_CHAR;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_PARSE_UNEXPECTED_CHAR;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_PARSE_UNEXPECTED_ELEMENT;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_PARSE_UNKNOWN_PROLOG;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_PARSE_UNMATCHED_START;
/** @} */

/** @name XML transcoding
 *  @{ */
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_TRANSCODE_FAILED;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_TRANSCODE_FROM_DECL_FAILED;
/** @} */

/** @name XML Schema facets
 *  @{ */
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_VALIDATE_BOUNDS_ERROR;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_VALIDATE_ENUMERATION_ERROR;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_VALIDATE_FIXED_VALUE_ERROR;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_VALIDATE_FRACTION_DIGITS_ERROR;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_VALIDATE_LENGTH_ERROR;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_VALIDATE_MAX_EXCLUSIVE_ERROR;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_VALIDATE_MAX_INCLUSIVE_ERROR;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_VALIDATE_MAX_LENGTH_ERROR;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_VALIDATE_MIN_EXCLUSIVE_ERROR;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_VALIDATE_MIN_INCLUSIVE_ERROR;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_VALIDATE_MIN_LENGTH_ERROR;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_VALIDATE_PATTERN_ERROR;
NOLK_API extern const MessageCatalogId NOLK_CORE_XML_VALIDATE_TOTAL_DIGITS_ERROR;
/** @} */

}  // namespace nolk

#endif
