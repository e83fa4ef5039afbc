// The content manager as gSOAP sees it: soapcpp2 makes a server of this header. Prefixes are gSOAP's own.
// Its directives begin right behind the slashes.
// clang-format off
//gsoap cm service name: content
//gsoap cm service namespace: http://developer.vantor.example/schemas/contentManagerService/1
//gsoap cm service style: rpc
//gsoap cm service encoding: encoded
//gsoap tv schema namespace: http://developer.vantor.example/schemas/tavel/3/
//gsoap tv schema elementForm: qualified

typedef int xsd__integer;
class xsd__base64Binary {
public:
    unsigned char* __ptr;
    int __size;
};

typedef std::string tv__searchPathMultipleObject;
typedef std::string tv__searchPathSingleObject;
typedef std::string tv__propEnum;
typedef std::string tv__updateActionEnum;
class tv__sort {
public:
    tv__propEnum* propName;
};

class tv__queryOptions {
public:
    int* maxObjects;
    bool* schemaInfo;
};
class tv__addOptions {
public:
    bool* faultIfObjectReferenced;
    tv__updateActionEnum* updateAction;
};
class tv__deleteOptions {
public:
    bool* recursive;
};

class tv__tokenProp {
public:
    std::string* value;
};
class tv__stringProp {
public:
    std::string* value;
};
class tv__booleanProp {
public:
    bool* value;
};
class tv__nonNegativeIntegerProp {
public:
    xsd__integer* value;
};
class tv__base64BinaryMIMEProp {
public:
    xsd__base64Binary* value;
};
class tv__multilingualToken {
public:
    std::string* locale;
    std::string* value;
};
class ArrayOfMultilingualToken {
public:
    tv__multilingualToken** __ptr;
    int __size;
};
class tv__multilingualTokenProp {
public:
    ArrayOfMultilingualToken* value;
};

class tv__baseClass {
public:
    tv__tokenProp* defaultName;
    tv__multilingualTokenProp* name;
    tv__stringProp* searchPath;
};
class tv__uiClass : public tv__baseClass {
public:
    tv__stringProp* defaultDescription;
    tv__nonNegativeIntegerProp* displaySequence;
    tv__booleanProp* hidden;
};
class tv__folder : public tv__uiClass {};
class tv__report : public tv__uiClass {};
class tv__resource : public tv__uiClass {
public:
    tv__base64BinaryMIMEProp* data;
};

class ArrayOfBaseClass {
public:
    tv__baseClass** __ptr;
    int __size;
};
class ArrayOfPropEnum {
public:
    tv__propEnum* __ptr;
    int __size;
};
class ArrayOfSort {
public:
    tv__sort** __ptr;
    int __size;
};

struct cm__queryResponse {
    ArrayOfBaseClass* tv__result;
};
int cm__query(tv__searchPathMultipleObject tv__searchPath, ArrayOfPropEnum* tv__properties,
              ArrayOfSort* tv__sortBy, tv__queryOptions* tv__options, struct cm__queryResponse& answer);

struct cm__addResponse {
    ArrayOfBaseClass* tv__result;
};
int cm__add(tv__searchPathSingleObject tv__parentPath, ArrayOfBaseClass* tv__objects,
            tv__addOptions* tv__options, struct cm__addResponse& answer);

struct cm__deleteResponse {
    int tv__result;
};
int cm__delete(ArrayOfBaseClass* tv__objects, tv__deleteOptions* tv__options,
               struct cm__deleteResponse& answer);
