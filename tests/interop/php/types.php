<?php
// The classes of content.wsdl, for both directions of PHP's SOAP extension.
class baseClass { public $defaultName; public $name; public $searchPath; }
class uiClass extends baseClass { public $defaultDescription; public $displaySequence; public $hidden; }
class folder extends uiClass {}
class report extends uiClass {}
class resource_ extends uiClass { public $data; }

const TYPES = 'http://developer.vantor.example/schemas/tavel/3/';
const CLASSES = ['baseClass' => 'baseClass', 'uiClass' => 'uiClass', 'folder' => 'folder',
    'report' => 'report', 'resource' => 'resource_'];

/** An object whose own class goes to the wire as its type. */
function typed(object $object): SoapVar
{
    return new SoapVar($object, SOAP_ENC_OBJECT, array_search(get_class($object), CLASSES), TYPES);
}
