#pragma once

#include "host/edit/command_line.h"

#include <cstddef>
#include <string>

// Everything that is told on the command line or asked there, by number. "%s" takes wide text, "%i"
// an integer; what a text ends with (a line feed or nothing) is part of it.
enum class Message : int {
    pluginName = 100,
    noFileLoaded = 101,
    objectPrompt = 102,
    objectNotFound = 103,
    dependenciesNotLoaded = 104,
    noObjectsSelected = 105,
    completed = 106,
    graphicsOrClassesPrompt = 107,
    completedOf = 108,
    descriptionFilter = 109,
    usePropertiesPrompt = 110,
    useObjectsPrompt = 111,
    matchPrompt = 112,
    tableDiffersBox = 113,
    errorTitle = 114,
    firstOrLastPrompt = 115,
    completedPlain = 116,
    invalidValues = 117,
    fieldColumn = 118,
    typeColumn = 119,
    valueColumn = 120,
    rangeColumn = 121,
    pointPrompt = 122,
    textPrompt = 123,
    textPromptWithDefault = 124,
    invalidBlockReference = 125,
    unableToLoad = 126,
    invalidClass = 127,
    redefinition = 128,
    invalidLayout = 129,
    invalidLayer = 130,
    invalidLinetype = 131,
    invalidMline = 132,
    invalidObject = 133,
    tableIllFormed = 134,
    tableDiffers = 135,
    invalidObjName = 136,
    objNameUndefined = 137,
    objTypeUndefined = 138,
    invalidObjProp = 139,
    invalidObjType = 140,
    invalidOdName = 141,
    odNameUndefined = 142,
    invalidOdFld = 143,
    invalidOdKey = 144,
    invalidPattern = 145,
    invalidTextStyle = 146,
    invalidVariable = 147,
    unknownVariable = 148,
    invalidSyntax = 149,
    classNotClosed = 150,
    tableConflict = 151,
    blockNotFound = 152,
    layerNotFound = 153,
    linetypeNotFound = 154,
    mlineNotFound = 155,
    patternNotFound = 156,
    textStyleNotFound = 157,
    undefinedObject = 158,
    objectDependenciesNotLoaded = 159,
    invalidValue = 160,
    firstKeyword = 161,
    lastKeyword = 162,
    invalidPath = 163,
    objectWithoutType = 164,
    invalidValuesContinue = 165,
    warningTitle = 166,
    selectedOpen = 167,
    invalidMleader = 168,
    mleaderNotFound = 169,
    invalidDimension = 170,
    dimensionNotFound = 171,
    unableToOpen = 172,
    invalidDefine = 173,
    macroRedefinition = 174,
    drawingNotSupported = 175,
    boxTitle = 176,
    invalidFont = 177,
    alreadyExists = 178,
    filePrompt = 179,
    descriptionColumn = 180,
    currentOrFilePrompt = 181,
    drawingFilter = 182,
    invalidBlockReferenceFile = 183,
    allOrDefaultPrompt = 184,
    fileNotOpened = 185,
    invalidFormat = 186,
    formatPrompt = 187,
    selected = 188,
    checkNonRequiredPrompt = 189,
    undrawablePrompt = 190,
    fieldRedefinition = 193,
    recursiveDefinition = 194,
};

// The text as it stands in the table, with its "%s" and "%i".
const wchar_t* textOf(Message id);

namespace detail {

inline const wchar_t* formatArgument(const std::wstring& text)
{
    return text.c_str();
}
inline const wchar_t* formatArgument(const wchar_t* text)
{
    return text;
}
inline int formatArgument(int number)
{
    return number;
}
inline int formatArgument(std::size_t count)
{
    return static_cast<int>(count);
}

std::wstring fillIn(const wchar_t* pattern, ...);

} // namespace detail

// The text with its arguments, in the order of the text.
template <class... Arguments> std::wstring filledIn(Message id, const Arguments&... arguments)
{
    return detail::fillIn(textOf(id), detail::formatArgument(arguments)...);
}

// Prints a message on the command line.
template <class... Arguments> void tell(Message id, const Arguments&... arguments)
{
    host::print(filledIn(id, arguments...));
}
