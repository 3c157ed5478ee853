// Documents of the tool against the schema files of docs/schema/.
#pragma once

#include <string>
#include <vector>

// What is wrong with a document by the schema, each as "PLACE: what"; empty when nothing is. Knows
// type, required, properties, additionalProperties (true or false), items (one schema), enum and
// const, with title, description and $schema for people. Any other keyword of the schema is a
// fault.
std::vector<std::string> schema_faults(const std::string& schema, const std::string& document);

// The same by the schema that the document's "format" names: "ovri-result/1" is in
// docs/schema/ovri-result-1.json. A document without a format, or whose schema is not there, is
// at fault.
std::vector<std::string> document_faults(const std::string& document);

// Whether the text looks like a document of the tool's.
bool is_document(const std::string& text);
