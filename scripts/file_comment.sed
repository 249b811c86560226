# Shows the API reference the first line of a header as the documentation of the file.
1s|^// \(.*\)$|/** @file\n \1 */|
