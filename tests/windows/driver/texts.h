// Texts on their way to the transcript: the wide characters of Windows, the UTF-8 of scripts and transcripts, and JSON.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace driving {

std::wstring widen(std::string_view utf8);
std::string narrow(std::wstring_view wide);

std::string json(std::wstring_view wide);  // in quotes, with what JSON wants escaped
std::string truth(bool value);
std::string listOf(const std::vector<std::wstring>& items);
// One more "key":value behind the pieces of an object.
void add(std::string& pieces, const std::string& key, const std::string& value);

void write(const std::string& line);      // a line of the transcript
void refuse(const std::wstring& reason);  // what a user could not do

}  // namespace driving
