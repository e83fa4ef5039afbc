#pragma once

/// The scheme and host in front of every namespace path of the bus: the developer authority for paths
/// that begin "/schemas/" or "/vrok/", the product authority for "/xmlns/prod/vantor/". They are
/// macros so that whole names are built as literals.
#define MRL_DEVELOPER_AUTHORITY "http://developer.vantor.example"
#define MRL_PRODUCT_AUTHORITY "http://www.vantor.example"
